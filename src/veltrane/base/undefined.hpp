// The values that mean "not given": -1e100 for reals and co-ordinates, -1 for integers and handles.
#pragma once

namespace veltrane {

inline constexpr double kUndefinedReal = -1e100;
inline constexpr int kUndefinedInteger = -1;

inline bool is_undefined(double value) {
    return value == kUndefinedReal;
}
inline bool is_undefined(int value) {
    return value == kUndefinedInteger;
}
/// A point or vector is undefined when every co-ordinate is.
template <class Coordinates>
bool all_undefined(const Coordinates& point) {
    for (int axis = 0; axis < static_cast<int>(point.size()); ++axis) {
        if (!is_undefined(point[axis])) return false;
    }
    return true;
}

}  // namespace veltrane
