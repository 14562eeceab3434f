// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/RealTransform.h"

#include <fftw3.h>

#include <algorithm>
#include <cassert>
#include <map>
#include <mutex>
#include <new>
#include <stdexcept>
#include <type_traits>

namespace korvel::platform {
namespace {

/// The library has each of its functions once for every precision.
template <class Real>
struct Library;

template <>
struct Library<double> {
  using Complex = fftw_complex;
  using Plan = fftw_plan;
  static constexpr auto plan = fftw_plan_dft_r2c_1d;
  static constexpr auto execute = fftw_execute_dft_r2c;
  static constexpr auto destroy = fftw_destroy_plan;
};

template <>
struct Library<float> {
  using Complex = fftwf_complex;
  using Plan = fftwf_plan;
  static constexpr auto plan = fftwf_plan_dft_r2c_1d;
  static constexpr auto execute = fftwf_execute_dft_r2c;
  static constexpr auto destroy = fftwf_destroy_plan;
};

struct FreeValues {
  void operator()(void* values) const { fftw_free(values); }
};
template <class Value>
using Values = std::unique_ptr<Value[], FreeValues>;

/// Aligned as the library wants it for its fast code paths, which is the same in both precisions.
template <class Value>
Values<Value> allocate(std::size_t count) {
  Values<Value> values(static_cast<Value*>(fftw_malloc(count * sizeof(Value))));
  if (!values) throw std::bad_alloc();
  std::uninitialized_fill_n(values.get(), count, Value());
  return values;
}

// std::complex is laid out as the library's own type, by promise of both.
template <class Real>
auto* asLibraryType(std::complex<Real>* values) {
  return reinterpret_cast<typename Library<Real>::Complex*>(values);
}

template <class Real>
struct DestroyPlan {
  void operator()(typename Library<Real>::Plan plan) const { Library<Real>::destroy(plan); }
};
template <class Real>
using Plan =
    std::unique_ptr<std::remove_pointer_t<typename Library<Real>::Plan>, DestroyPlan<Real>>;

/// Estimated, not measured: a measured plan may differ from run to run, and the last bits of the
/// results with it.
template <class Real>
Plan<Real> makePlan(std::size_t size, Real* input, std::complex<Real>* output) {
  Plan<Real> plan(Library<Real>::plan(static_cast<int>(size), input, asLibraryType(output),
                                      FFTW_ESTIMATE | FFTW_PRESERVE_INPUT));
  if (!plan) throw std::runtime_error("cannot plan a transform");
  return plan;
}

/// The one plan of a size. It fits every pair of buffers, since all are aligned alike.
template <class Real>
auto planFor(std::size_t size, Real* input, std::complex<Real>* output) {
  static std::mutex mutex;
  static std::map<std::size_t, Plan<Real>> plans;
  const std::scoped_lock lock(mutex);
  auto found = plans.find(size);
  if (found == plans.end()) found = plans.emplace(size, makePlan(size, input, output)).first;
  return found->second.get();
}

}  // namespace

template <class Real>
struct BasicRealTransform<Real>::State {
  explicit State(std::size_t count)
      : size(count),
        input(allocate<Real>(count)),
        output(allocate<std::complex<Real>>(count / 2 + 1)),
        plan(planFor(count, input.get(), output.get())) {}

  std::size_t size;
  Values<Real> input;
  Values<std::complex<Real>> output;
  typename Library<Real>::Plan plan;
};

template <class Real>
BasicRealTransform<Real>::BasicRealTransform(std::size_t size) {
  assert(size > 0);
  m_state = std::make_unique<State>(size);
}

template <class Real>
BasicRealTransform<Real>::BasicRealTransform(BasicRealTransform&&) noexcept = default;
template <class Real>
BasicRealTransform<Real>& BasicRealTransform<Real>::operator=(BasicRealTransform&&) noexcept =
    default;
template <class Real>
BasicRealTransform<Real>::~BasicRealTransform() = default;

template <class Real>
void BasicRealTransform<Real>::run() {
  Library<Real>::execute(m_state->plan, m_state->input.get(), asLibraryType(m_state->output.get()));
}

template <class Real>
std::span<Real> BasicRealTransform<Real>::input() {
  return {m_state->input.get(), m_state->size};
}

template <class Real>
std::span<const std::complex<Real>> BasicRealTransform<Real>::output() const {
  return {m_state->output.get(), m_state->size / 2 + 1};
}

template class BasicRealTransform<double>;
template class BasicRealTransform<float>;

}  // namespace korvel::platform
