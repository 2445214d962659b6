#include "veltrane/kernel/geom/surface_fit.hpp"

#include "veltrane/kernel/geom/bspline_convert.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

using Line = std::vector<Point>;

/// The lines of the grid across its rows.
std::vector<Line> columns_of(const std::vector<Line>& rows) {
    std::vector<Line> columns(rows.front().size(), Line(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < columns.size(); ++j) columns[j][i] = rows[i][j];
    }
    return columns;
}

/// Mean relative chord lengths over all lines (algorithm A9.3). Lines without length say nothing.
std::vector<double> mean_parameters(const std::vector<Line>& lines) {
    std::vector<double> parameters(lines.front().size(), 0);
    int counted = 0;
    for (const Line& line : lines) {
        std::vector<double> along(line.size(), 0);
        for (std::size_t i = 1; i < line.size(); ++i)
            along[i] = along[i - 1] + distance(line[i - 1], line[i]);
        if (!(along.back() > 0)) continue;
        ++counted;
        for (std::size_t i = 0; i < line.size(); ++i) parameters[i] += along[i] / along.back();
    }
    for (double& t : parameters) t /= std::max(counted, 1);
    for (std::size_t i = 1; i < parameters.size(); ++i) {
        if (!(parameters[i] - parameters[i - 1] > kParametric)) {
            throw KernelError("Neighbouring lines of a grid of points coincide");
        }
    }
    parameters.back() = 1;
    return parameters;
}

/// The basis functions that do not vanish on a span (algorithm A2.2).
void basis_functions(const std::vector<double>& flat, int degree, int span, double t, double* out) {
    double left[kMaxDegree + 1], right[kMaxDegree + 1];
    out[0] = 1;
    for (int j = 1; j <= degree; ++j) {
        left[j] = t - flat[span + 1 - j];
        right[j] = flat[span + j] - t;
        double saved = 0;
        for (int r = 0; r < j; ++r) {
            const double share = out[r] / (right[r + 1] + left[j - r]);
            out[r] = saved + right[r + 1] * share;
            saved = left[j - r] * share;
        }
        out[j] = saved;
    }
}

/// Inner knots such that every span holds parameters: means of `degree` neighbours for as many poles as
/// points (equation 9.8), else by 9.68 and 9.69.
std::vector<double> fitting_knots(const std::vector<double>& parameters, int degree, int poles) {
    std::vector<double> flat(degree + 1, 0.0);
    const int points = static_cast<int>(parameters.size());
    for (int j = 1; j < poles - degree; ++j) {
        if (poles == points) {
            double sum = 0;
            for (int i = j; i < j + degree; ++i) sum += parameters[i];
            flat.push_back(sum / degree);
        } else {
            const double place = j * static_cast<double>(points) / (poles - degree);
            const int i = static_cast<int>(place);
            const double share = place - i;
            flat.push_back((1 - share) * parameters[i - 1] + share * parameters[i]);
        }
    }
    flat.insert(flat.end(), degree + 1, 1.0);
    return flat;
}

/// Linear equations with a band of coefficients, solved without exchange of rows: collocation matrices are
/// totally positive and normal equations positive definite, for which that is stable (C. de Boor and A.
/// Pinkus, Numerische Mathematik 27, 1977).
class BandedEquations {
public:
    BandedEquations(int size, int half_width)
        : size_(size), half_(half_width), values_(static_cast<std::size_t>(size) * (2 * half_width + 1), 0) {}

    double& at(int row, int column) {
        return values_[static_cast<std::size_t>(row) * (2 * half_ + 1) + (column - row + half_)];
    }

    void factorise() {
        for (int k = 0; k < size_; ++k) {
            if (at(k, k) == 0) throw KernelError("A grid of points has no surface through it");
            for (int i = k + 1; i < std::min(size_, k + half_ + 1); ++i) {
                const double factor = at(i, k) /= at(k, k);
                if (factor == 0) continue;
                for (int j = k + 1; j < std::min(size_, k + half_ + 1); ++j) at(i, j) -= factor * at(k, j);
            }
        }
    }

    void solve(Line& right) {
        for (int i = 0; i < size_; ++i) {
            for (int j = std::max(0, i - half_); j < i; ++j) right[i] -= at(i, j) * right[j];
        }
        for (int i = size_ - 1; i >= 0; --i) {
            for (int j = i + 1; j < std::min(size_, i + half_ + 1); ++j) right[i] -= at(i, j) * right[j];
            right[i] /= at(i, i);
        }
    }

private:
    int size_;
    int half_;
    std::vector<double> values_;
};

/// Curves over common knots through lines of points with common parameters: the least squares with the
/// first and last point kept (algorithm A9.7), which pass all points when there is a pole for each.
class LineFit {
public:
    LineFit(const std::vector<double>& parameters, int degree, int poles)
        : flat_(fitting_knots(parameters, degree, poles)),
          degree_(degree),
          poles_(poles),
          rows_(parameters.size()),
          equations_(poles, degree) {
        for (std::size_t k = 0; k < rows_.size(); ++k) {
            rows_[k].first = find_span(flat_, degree, poles, parameters[k]) - degree;
            basis_functions(flat_, degree, rows_[k].first + degree, parameters[k], rows_[k].values);
        }
        for (const Row& row : rows_) add(row);
        for (const int end : {0, poles - 1}) fix(end);
        equations_.factorise();
    }

    Line poles_for(const Line& points) {
        Line right = points;
        if (!passes_points()) {
            right.assign(poles_, Point(0, 0, 0));
            for (std::size_t k = 0; k < rows_.size(); ++k) {
                for (int i = 0; i <= degree_; ++i)
                    right[rows_[k].first + i] += rows_[k].values[i] * points[k];
            }
        }
        right.front() = points.front();
        right.back() = points.back();
        equations_.solve(right);
        return right;
    }

    /// Greatest distance of the points from the curve at their parameters.
    double deviation(const Line& points, const Line& poles) const {
        double most = 0;
        for (std::size_t k = 0; k < rows_.size(); ++k) {
            Vector offset = -points[k];
            for (int i = 0; i <= degree_; ++i) offset += rows_[k].values[i] * poles[rows_[k].first + i];
            most = std::max(most, offset.norm());
        }
        return most;
    }

    BSplineAxis axis() const {
        DistinctKnots knots = distinct_knots(flat_);
        return {degree_, std::move(knots.knots), std::move(knots.multiplicities)};
    }

private:
    struct Row {
        int first;
        double values[kMaxDegree + 1];
    };

    bool passes_points() const { return rows_.size() == static_cast<std::size_t>(poles_); }

    void add(const Row& row) {
        if (passes_points()) {
            for (int j = 0; j <= degree_; ++j) {
                const int k = static_cast<int>(&row - rows_.data());
                if (row.values[j] != 0) equations_.at(k, row.first + j) = row.values[j];
            }
            return;
        }
        for (int i = 0; i <= degree_; ++i) {
            for (int j = 0; j <= degree_; ++j) {
                equations_.at(row.first + i, row.first + j) += row.values[i] * row.values[j];
            }
        }
    }

    void fix(int end) {
        for (int j = std::max(0, end - degree_); j < std::min(poles_, end + degree_ + 1); ++j) {
            equations_.at(end, j) = j == end ? 1 : 0;
        }
    }

    std::vector<double> flat_;
    int degree_;
    int poles_;
    std::vector<Row> rows_;
    BandedEquations equations_;
};

struct FittedLines {
    BSplineAxis axis;
    std::vector<Line> poles;
};

FittedLines lines_of_higher_degree(const FittedLines& low, int degree) {
    FittedLines result;
    for (const Line& poles : low.poles) {
        const auto curve = with_degree(
            BSplineCurve({low.axis.degree, poles, {}, low.axis.knots, low.axis.multiplicities, false}),
            degree);
        result.axis = {degree, curve->knots(), curve->multiplicities()};
        result.poles.push_back(curve->poles());
    }
    return result;
}

FittedLines fit_lines(const std::vector<Line>& lines, const std::vector<double>& parameters, int degree,
                      double tolerance) {
    const int points = static_cast<int>(parameters.size());
    if (points <= degree) {
        return lines_of_higher_degree(fit_lines(lines, parameters, points - 1, tolerance), degree);
    }
    for (int spans = tolerance > 0 ? 1 : points;; spans *= 2) {
        const int poles = spans < points - degree ? spans + degree : points;
        LineFit fit(parameters, degree, poles);
        FittedLines result{fit.axis(), {}};
        double worst = 0;
        for (const Line& line : lines) {
            result.poles.push_back(fit.poles_for(line));
            worst = std::max(worst, fit.deviation(line, result.poles.back()));
            if (poles < points && worst > tolerance) break;
        }
        if (poles == points || worst <= tolerance) return result;
    }
}

}  // namespace

Ref<BSplineSurface> fit(const PointGrid& grid, double tolerance, int degree) {
    if (grid.rows < 2 || grid.columns < 2) throw KernelError("A grid of points needs two rows and columns");
    if (grid.points.size() != static_cast<std::size_t>(grid.rows) * grid.columns) {
        throw KernelError("The points of a grid are not as many as its rows and columns ask for");
    }
    if (!std::all_of(grid.points.begin(), grid.points.end(), [](const Point& p) { return is_usable(p); })) {
        throw KernelError("A point of a grid is not usable");
    }
    if (degree < 1 || degree > kMaxDegree) throw KernelError("The degree of a B-spline is not 1 to 25");
    std::vector<Line> rows;
    for (int i = 0; i < grid.rows; ++i) {
        const auto first = grid.points.begin() + static_cast<std::ptrdiff_t>(i) * grid.columns;
        rows.emplace_back(first, first + grid.columns);
    }
    const std::vector<Line> columns = columns_of(rows);
    // The deviations of both directions add up.
    const FittedLines across = fit_lines(columns, mean_parameters(columns), degree, tolerance / 2);
    const FittedLines along =
        fit_lines(columns_of(across.poles), mean_parameters(rows), degree, tolerance / 2);
    BSplineSurfaceData data{across.axis, along.axis, {}, {}};
    for (const Line& row : along.poles) data.poles.insert(data.poles.end(), row.begin(), row.end());
    return make<BSplineSurface>(std::move(data));
}

}  // namespace veltrane::kernel
