#pragma once
// The benchmarks' synthetic record: a ground-motion-like acceleration in g, a few sines under a
// rise-and-decay envelope plus noise, so that no oscillator sits at rest and no value underflows.
#include <cmath>
#include <cstdint>

namespace tv::bench {

class GroundMotion {
public:
    /// The envelope is largest at `rise` seconds; `seed` starts the noise.
    GroundMotion(double rise, std::uint32_t seed) : rise_(rise), state_(seed) {}

    /// The sample at time t (s); each call draws the next noise value.
    double operator()(double t) {
        state_ = state_ * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(state_ >> 8) / 16777216.0 - 0.5) * 0.05;
        const double envelope = (t / rise_) * std::exp(1.0 - t / rise_);
        const double motion = 0.3 * std::sin(2 * M_PI * 1.1 * t) + 0.2 * std::sin(2 * M_PI * 2.7 * t + 0.4) +
                              0.1 * std::sin(2 * M_PI * 6.3 * t + 1.3) + 0.05 * std::sin(2 * M_PI * 0.4 * t);
        return envelope * (motion + noise);
    }

private:
    double rise_;
    std::uint32_t state_;
};

}  // namespace tv::bench
