// The progress of a transfer as a bar on a terminal, and the way to stop it.
#pragma once

#include "vdxf/console.hpp"
#include "veltrane/exchange/progress.hpp"

#include <string>

namespace veltrane::tool {

/// Draws a bar on standard error when that is a terminal and the user has not asked for quiet. While it
/// lives, an interrupt from the keyboard stops the transfer; a second one ends the process.
class ProgressBar : public ProgressListener {
public:
    /// `title` tells what is being done.
    ProgressBar(const Console& console, std::string title);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    /// Wipes the bar.
    ~ProgressBar() override;

    void Show(double done, std::string_view scope) override;
    bool UserBreak() override;

private:
    bool visible_;
    std::string title_;
    int shown_percent_ = -1;
};

}  // namespace veltrane::tool
