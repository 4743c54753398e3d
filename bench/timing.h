#pragma once

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace quorvale::bench {

inline constexpr int rounds = 5;

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Milliseconds of processor time that this process and its children that ended have used.
inline double ProcessorTime() {
    double sum = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime}) {
            sum += static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        }
    }
    return sum;
}

/// A piece of work that is measured several times, in milliseconds.
struct Timing {
    std::string Name;
    std::function<void()> Work;
    std::function<void()> Prepare = [] {};
    std::vector<double> Times{};

    void Measure() {
        Prepare();
        const auto begin = std::chrono::steady_clock::now();
        Work();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - begin;
        Times.push_back(time.count());
    }
    double Middle() const { return Median(Times); }
};

/// Once to warm up, then in turn, so that a slow moment of the machine meets all of them.
inline void Measure(std::vector<Timing>& timings) {
    for (Timing& timing : timings) {
        timing.Prepare();
        timing.Work();
    }
    for (int round = 0; round < rounds; ++round) {
        for (Timing& timing : timings) timing.Measure();
    }
}

inline void Print(const Timing& timing, const std::string& remark = {}) {
    const auto [least, most] = std::minmax_element(timing.Times.begin(), timing.Times.end());
    std::printf("  %-52s %9.3f ms  (%.3f to %.3f)  %s\n", timing.Name.c_str(), timing.Middle(),
                *least, *most, remark.c_str());
}

inline std::string Ratio(double one, double other, const char* remark) {
    char text[80];
    std::snprintf(text, sizeof text, "%.2f x %s", one / other, remark);
    return text;
}

}  // namespace quorvale::bench
