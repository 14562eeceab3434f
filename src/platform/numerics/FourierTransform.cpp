// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/numerics/FourierTransform.h"

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

constexpr unsigned kFlags = FFTW_ESTIMATE | FFTW_PRESERVE_INPUT;

/// The library has each of its functions once for every precision and kind of input.
template <class Input>
struct Library;

template <>
struct Library<double> {
  using Complex = fftw_complex;
  using Plan = fftw_plan;
  static Plan plan(int size, double* input, Complex* output) {
    return fftw_plan_dft_r2c_1d(size, input, output, kFlags);
  }
  static void execute(Plan plan, double* input, Complex* output) {
    fftw_execute_dft_r2c(plan, input, output);
  }
  static constexpr auto destroy = fftw_destroy_plan;
  static std::size_t outputs(std::size_t size) { return size / 2 + 1; }
};

template <>
struct Library<std::complex<float>> {
  using Complex = fftwf_complex;
  using Plan = fftwf_plan;
  static Plan plan(int size, std::complex<float>* input, Complex* output) {
    return fftwf_plan_dft_1d(size, reinterpret_cast<Complex*>(input), output, FFTW_FORWARD, kFlags);
  }
  static void execute(Plan plan, std::complex<float>* input, Complex* output) {
    fftwf_execute_dft(plan, reinterpret_cast<Complex*>(input), output);
  }
  static constexpr auto destroy = fftwf_destroy_plan;
  static std::size_t outputs(std::size_t size) { return size; }
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

template <class Input>
using Real = typename FourierTransform<Input>::Real;

// std::complex is laid out as the library's own type, by promise of both.
template <class Input>
auto* asLibraryType(std::complex<Real<Input>>* values) {
  return reinterpret_cast<typename Library<Input>::Complex*>(values);
}

template <class Input>
struct DestroyPlan {
  void operator()(typename Library<Input>::Plan plan) const { Library<Input>::destroy(plan); }
};
template <class Input>
using Plan =
    std::unique_ptr<std::remove_pointer_t<typename Library<Input>::Plan>, DestroyPlan<Input>>;

/// Estimated, not measured: a measured plan may differ from run to run, and the last bits of the
/// results with it.
template <class Input>
Plan<Input> makePlan(std::size_t size, Input* input, std::complex<Real<Input>>* output) {
  Plan<Input> plan(
      Library<Input>::plan(static_cast<int>(size), input, asLibraryType<Input>(output)));
  if (!plan) throw std::runtime_error("cannot plan a transform");
  return plan;
}

/// The one plan of a size. It fits every pair of buffers, since all are aligned alike.
template <class Input>
auto planFor(std::size_t size, Input* input, std::complex<Real<Input>>* output) {
  // Never destroyed: another thread may still compute while the program ends.
  static auto& mutex = *new std::mutex;
  static auto& plans = *new std::map<std::size_t, Plan<Input>>;
  const std::scoped_lock lock(mutex);
  auto found = plans.find(size);
  if (found == plans.end()) found = plans.emplace(size, makePlan(size, input, output)).first;
  return found->second.get();
}

}  // namespace

template <class Input>
struct FourierTransform<Input>::State {
  explicit State(std::size_t count)
      : input(allocate<Input>(count)),
        output(allocate<std::complex<Real>>(Library<Input>::outputs(count))),
        size(count),
        plan(planFor(count, input.get(), output.get())) {}

  Values<Input> input;
  Values<std::complex<Real>> output;
  std::size_t size;
  typename Library<Input>::Plan plan;
};

template <class Input>
FourierTransform<Input>::FourierTransform(std::size_t size) {
  assert(size > 0);
  m_state = std::make_unique<State>(size);
}

template <class Input>
FourierTransform<Input>::FourierTransform(FourierTransform&&) noexcept = default;
template <class Input>
FourierTransform<Input>& FourierTransform<Input>::operator=(FourierTransform&&) noexcept = default;
template <class Input>
FourierTransform<Input>::~FourierTransform() = default;

template <class Input>
void FourierTransform<Input>::run() {
  Library<Input>::execute(m_state->plan, m_state->input.get(),
                          asLibraryType<Input>(m_state->output.get()));
}

template <class Input>
std::span<Input> FourierTransform<Input>::input() {
  return {m_state->input.get(), m_state->size};
}

template <class Input>
auto FourierTransform<Input>::output() const -> std::span<const std::complex<Real>> {
  return {m_state->output.get(), Library<Input>::outputs(m_state->size)};
}

template class FourierTransform<double>;
template class FourierTransform<std::complex<float>>;

}  // namespace korvel::platform
