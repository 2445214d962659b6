// The conventions of the readable dump: one labelled line per field.
#pragma once

#include "veltrane/base/sequence.hpp"
#include "veltrane/base/text.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

#include <ostream>
#include <string_view>

namespace veltrane {

inline std::ostream& dump_label(std::ostream& stream, const char* label) {
    return stream << label << ": \t";
}

template <class Coordinates>
void dump_point(std::ostream& stream, const Coordinates& point) {
    stream << '(';
    for (int axis = 0; axis < static_cast<int>(point.size()); ++axis) {
        stream << (axis ? ", " : "") << point[axis];
    }
    stream << ')';
}

inline void dump_item(std::ostream& stream, double value) {
    stream << "  " << value;
}
inline void dump_item(std::ostream& stream, std::int32_t value) {
    stream << "  " << value;
}
inline void dump_item(std::ostream& stream, const kernel::Point& point) {
    dump_point(stream << "  ", point);
}
inline void dump_item(std::ostream& stream, const kernel::Point2& point) {
    dump_point(stream << "  ", point);
}
inline void dump_item(std::ostream& stream, const Text& text) {
    stream << "  \"" << text << '"';
}
inline void dump_item(std::ostream& stream, const DxfSection_DxfGroup& group) {
    stream << "  {" << group.Code << ", " << group.Value << '}';
}

/// The frame of a list of `count` items, -1 for a list that is not set. True when its items are to be
/// written, a line each, and then end_list().
bool begin_list(std::ostream& stream, const char* label, int count, int level);
inline void end_list(std::ostream& stream) {
    stream << "}\n";
}

/// A list of plain values.
template <class T>
void dump_list(std::ostream& stream, const char* label, const Ref<Sequence<T>>& list, int level) {
    if (!begin_list(stream, label, list ? list->Length() : -1, level)) return;
    for (const T& item : *list) {
        dump_item(stream, item);
        stream << '\n';
    }
    end_list(stream);
}

/// An element of a list that is a record or a piece: its class and its own dump.
template <class DumpFields>
void dump_element(std::ostream& stream, std::string_view class_name, DumpFields dump_fields) {
    stream << "  {" << class_name << '\n';
    dump_fields();
    stream << "  }\n";
}

/// A list whose elements dump themselves: `dump_fields(element, level)`.
template <class T, class DumpFields>
void dump_elements(std::ostream& stream, const char* label, const Ref<Sequence<Ref<T>>>& list, int level,
                   DumpFields dump_fields) {
    if (!begin_list(stream, label, list ? list->Length() : -1, level)) return;
    for (const Ref<T>& element : *list) {
        if (!element) {
            stream << "  <NULL>\n";
            continue;
        }
        dump_element(stream, element->DynamicType().name(), [&] { dump_fields(*element, level - 1); });
    }
    end_list(stream);
}

/// A field that holds one piece, which dumps itself: `dump_fields(piece, level)`.
template <class T, class DumpFields>
void dump_piece(std::ostream& stream, const char* label, const Ref<T>& piece, int level,
                DumpFields dump_fields) {
    dump_label(stream, label);
    if (!piece) {
        stream << "<NULL>\n";
        return;
    }
    if (level < 1) {
        stream << '[' << piece->DynamicType().name() << "]\n";
        return;
    }
    stream << '{' << piece->DynamicType().name() << '\n';
    dump_fields(*piece, level - 1);
    stream << "  }\n";
}

}  // namespace veltrane
