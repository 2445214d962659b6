// The way from the model to a page. Internal to the folder.
#pragma once

#include "veltrane/output/page.hpp"
#include "veltrane/output/view.hpp"

namespace veltrane {

/// Takes points of the model to places on a page, in page units: x to the right, y downwards, z the height
/// along a direction that is not across the line of sight.
struct Projection {
    View view;
    Page page;
    kernel::Vector upwards;  ///< the direction of heights, a unit vector
    double zero = 0;         ///< the height in the model, millimetres, that is 0 on the page

    kernel::Point2 on_page(const kernel::Point& p) const { return page.to_page(view.project(p)); }
    kernel::Point place(const kernel::Point& p) const {
        const kernel::Point2 at = on_page(p);
        return {at.x(), at.y(), to_height(upwards.dot(p))};
    }
    double to_height(double height) const { return (height - zero) * page.scale; }
};

}  // namespace veltrane
