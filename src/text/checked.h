#pragma once
// Checked arithmetic: the results that the old run time refused become RuntimeError instead of
// inf or NaN. Operations are plain IEEE doubles otherwise, evaluated as written.
#include <cmath>
#include <cstddef>
#include <vector>

#include "text/runtime_error.h"

namespace tv::text {

/// A result that is not finite raises 6 "Overflow"; otherwise returned as is.
inline double chk(double x) {
    if (!std::isfinite(x)) raise(kOverflow);
    return x;
}

/// a / b: b == 0 raises 11 "Division by zero" (0 / 0 raises 6 "Overflow", as the old run time
/// did); a non-finite quotient raises 6.
inline double div(double a, double b) {
    if (b == 0.0) raise(a == 0.0 ? kOverflow : kDivisionByZero);
    return chk(a / b);
}

/// Sqr: a negative argument raises 5.
inline double sqrt_(double x) {
    if (x < 0.0) raise(kInvalidCall);
    return std::sqrt(x);
}

/// Log: an argument of 0 or less raises 5.
inline double log_(double x) {
    if (!(x > 0.0)) raise(kInvalidCall);
    return std::log(x);
}

/// Exp: overflow raises 6.
inline double exp_(double x) { return chk(std::exp(x)); }

/// a ^ b: a negative base with a fractional power raises 5, 0 to a negative power raises 11
/// "Division by zero"; an infinite result raises 6.
double pow_(double a, double b);

/// The old arrays: lower bound 0, upper bound given; an index outside raises 9.
template <class T>
class Array {
public:
    Array() = default;
    explicit Array(long upper) { redim(upper); }

    /// ReDim: a new array 0..upper, contents lost. An upper of -1 is an empty array.
    void redim(long upper) {
        if (upper < -1) raise(kSubscript);
        data_.assign(static_cast<std::size_t>(upper + 1), T{});
        allocated_ = true;
    }
    /// ReDim Preserve: keeps what fits.
    void redim_preserve(long upper) {
        if (upper < -1) raise(kSubscript);
        data_.resize(static_cast<std::size_t>(upper + 1), T{});
        allocated_ = true;
    }
    void erase() {
        data_.clear();
        allocated_ = false;
    }
    bool allocated() const { return allocated_; }
    /// UBound; an array never allocated raises 9.
    long ubound() const {
        if (!allocated_) raise(kSubscript);
        return static_cast<long>(data_.size()) - 1;
    }
    T& operator()(long i) { return data_[check(i)]; }
    const T& operator()(long i) const { return data_[check(i)]; }
    /// Index by a double, rounded half to even as the old run time did.
    T& at(double i);
    const T& at(double i) const;

    std::vector<T>& raw() { return data_; }
    const std::vector<T>& raw() const { return data_; }

private:
    std::size_t check(long i) const {
        if (!allocated_ || i < 0 || static_cast<std::size_t>(i) >= data_.size()) raise(kSubscript);
        return static_cast<std::size_t>(i);
    }
    std::vector<T> data_;
    bool allocated_ = false;
};

long index_of(double i);  // nearest, ties to even; beyond long range raises 6

template <class T>
T& Array<T>::at(double i) { return (*this)(index_of(i)); }
template <class T>
const T& Array<T>::at(double i) const { return (*this)(index_of(i)); }

using DoubleArray = Array<double>;

}  // namespace tv::text
