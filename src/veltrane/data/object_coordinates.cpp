#include "veltrane/data/object_coordinates.hpp"

#include "veltrane/kernel/math/frame.hpp"

namespace veltrane::DxfData {
namespace {

kernel::Matrix3 axes_of(const kernel::Vector& normal) {
    if (normal.z() == 1.0) return kernel::Matrix3::Identity();
    const kernel::Frame frame = kernel::Frame::from_normal({0, 0, 0}, normal);
    kernel::Matrix3 axes;
    axes << frame.x, frame.y, frame.z;
    return axes;
}

}  // namespace

kernel::Matrix3 ECSToWCS(const kernel::Vector& normal, kernel::Point& point) {
    const kernel::Matrix3 axes = axes_of(normal);
    point = kernel::Point(axes * point);
    return axes;
}

kernel::Matrix3 WCSToECS(const kernel::Vector& normal, kernel::Point& point) {
    const kernel::Matrix3 axes = axes_of(normal);
    point = kernel::Point(axes.transpose() * point);  // the axes are orthonormal
    return axes;
}

kernel::Transform ECSToWCS(const kernel::Vector& normal) {
    return ECSToWCS(normal, {0, 0, 0}, 0);
}

kernel::Transform ECSToWCS(const kernel::Vector& normal, const kernel::Point& origin, double rotation) {
    kernel::Point world = origin;
    const kernel::Matrix3 axes = ECSToWCS(normal, world);
    const auto turned = kernel::Transform::rotation({0, 0, 0}, {0, 0, 1}, rotation);
    return kernel::Transform::from_frame({world, axes.col(0), axes.col(1), axes.col(2)}) * turned;
}

}  // namespace veltrane::DxfData
