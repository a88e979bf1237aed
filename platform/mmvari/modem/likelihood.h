#pragma once

#include <cmath>

/// Formulas of detection that several modes share.
namespace platform::modem {

namespace detail {

template <typename Real, std::size_t count>
Real Polynomial(Real x, const Real (&highestFirst)[count]) {
    Real sum = 0;
    for (const Real term : highestFirst) sum = sum * x + term;
    return sum;
}

/// I0(x) below 3.75.
template <typename Real>
Real NearI0(Real x) {
    const Real t = x / Real(3.75);
    return Polynomial(t * t, {Real(0.0045813), Real(0.0360768), Real(0.2659732), Real(1.2067492),
                              Real(3.0899424), Real(3.5156229), Real(1)});
}

/// I0(x) sqrt(x) e^-x from 3.75 on.
template <typename Real>
Real FarI0(Real x) {
    return Polynomial(Real(3.75) / x, {Real(0.00392377), Real(-0.01647633), Real(0.02635537),
                                       Real(-0.02057706), Real(0.00916281), Real(-0.00157565),
                                       Real(0.00225319), Real(0.01328592), Real(0.39894228)});
}

} // namespace detail

/// Modified Bessel function of order 0 (Abramowitz and Stegun 9.8.1 and 9.8.2). @param x 0 and up
template <typename Real>
Real BesselI0(Real x) {
    return x < Real(3.75) ? detail::NearI0(x) : std::exp(x) / std::sqrt(x) * detail::FarI0(x);
}

/// Its logarithm, also where it is itself too large.
template <typename Real>
Real LogI0(Real x) {
    return x < Real(3.75) ? std::log(detail::NearI0(x)) : x - std::log(x) / 2 + std::log(detail::FarI0(x));
}

/// Log-likelihood of a tone of known strength and unknown phase in a correlator, against nothing but noise
/// there.
/// @param energy what the correlator has @param signal the tone's energy @param noise mean energy of noise
/// alone
inline double ToneLikelihood(double energy, double signal, double noise) {
    return LogI0(2 * std::sqrt(energy * signal) / noise) - signal / noise;
}

} // namespace platform::modem
