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
        std::int64_t take(double steps);
        void clear() { rest_ = 0; }

    private:
        double rest_ = 0;
    };

    Rest columns_;
    Rest rows_;
};

}  // namespace quorvale
