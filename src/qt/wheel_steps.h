#pragma once

#include <QPoint>
#include <QWheelEvent>
#include <cstdint>

namespace quorvale {

/// Gathers what a wheel or a touch pad reports, which may be parts of a row, into whole steps.
class WheelSteps {
public:
    struct Steps {
        std::int64_t Columns = 0;  ///< steps of the horizontal bar's arrow, to the right
        std::int64_t Rows = 0;     ///< rows down
    };

    /// `row` and `column` say how many pixels one row and one step to the side are. With Shift held
    /// a vertical movement goes to the side.
    Steps add(const QWheelEvent& event, double row, double column);

private:
    /// One direction: what is not yet a whole step.
    class Rest {
    public:
        /// Whole steps in what came together; a step is `unit` long.
        std::int64_t take(double distance, double unit);
        void clear() { rest_ = 0; }

    private:
        double rest_ = 0;
        double unit_ = 1;
    };

    Rest columns_;
    Rest rows_;
};

}  // namespace quorvale
