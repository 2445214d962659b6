// How far a transfer has come, for an application that wants to show it or to stop it.
#pragma once

#include <algorithm>
#include <string_view>

namespace veltrane {

/// What an application derives from.
class ProgressListener {
public:
    virtual ~ProgressListener() = default;

    /// Called about a thousand times in a whole transfer. `done` grows from 0 to 1; `scope` names the
    /// work at hand and is only valid during the call.
    virtual void Show(double done, std::string_view scope) = 0;
    /// Asked before each step; true stops the transfer. Make it cheap.
    virtual bool UserBreak() = 0;

private:
    friend class ProgressScope;
    void advance(double done, std::string_view scope) {
        const bool end = done >= 1 - 1e-9;  // sums of steps are not exact
        if (end ? shown_ == 1 : done < shown_ + 1e-3) return;
        shown_ = end ? 1 : done;
        Show(shown_, scope);
    }
    double shown_ = 0;
};

/// A stretch of the whole work, handed down to whoever does it. The default one has no listener and
/// costs nothing. The listener must outlive the work.
class Progress {
public:
    Progress() = default;
    explicit Progress(ProgressListener& listener) : listener_(&listener) {}

    bool UserBreak() const { return listener_ && listener_->UserBreak(); }

private:
    friend class ProgressScope;
    Progress(ProgressListener* listener, double from, double width)
        : listener_(listener), from_(from), width_(width) {}

    ProgressListener* listener_ = nullptr;
    double from_ = 0;
    double width_ = 1;
};

/// Divides a stretch into steps of equal length under a name.
class ProgressScope {
public:
    /// `steps` above 0; the characters of `name` outlive the scope.
    ProgressScope(const Progress& stretch, std::string_view name, double steps)
        : stretch_(stretch), name_(name), steps_(steps) {}
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;
    /// The last step is done when its scope ends; of a scope that was left early, no more is told.
    ~ProgressScope() {
        if (stretch_.listener_ && taken_ >= steps_) show(stretch_.width_);
    }

    /// The next step, which the caller is about to do; those before it count as done.
    Progress Next() {
        if (!stretch_.listener_) return {};
        const double before = stretch_.width_ * std::min(1.0, taken_ / steps_);
        taken_ += 1;
        show(before);
        return {stretch_.listener_, stretch_.from_ + before, stretch_.width_ * std::min(1.0, 1 / steps_)};
    }
    bool UserBreak() const { return stretch_.UserBreak(); }

private:
    void show(double part) const { stretch_.listener_->advance(stretch_.from_ + part, name_); }

    Progress stretch_;
    std::string_view name_;
    double steps_;
    double taken_ = 0;
};

}  // namespace veltrane
