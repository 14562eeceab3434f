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

struct FreeValues {
  void operator()(void* values) const { fftw_free(values); }
};
using RealValues = std::unique_ptr<double[], FreeValues>;
using ComplexValues = std::unique_ptr<std::complex<double>[], FreeValues>;

/// Aligned as the library wants it for its fast code paths.
template <class Values>
Values allocate(std::size_t count) {
  using Value = typename Values::element_type;
  Values values(static_cast<Value*>(fftw_malloc(count * sizeof(Value))));
  if (!values) throw std::bad_alloc();
  std::uninitialized_fill_n(values.get(), count, Value());
  return values;
}

// std::complex<double> is laid out as the library's own type, by promise of both.
fftw_complex* asLibraryType(std::complex<double>* values) {
  return reinterpret_cast<fftw_complex*>(values);
}

struct DestroyPlan {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};
using Plan = std::unique_ptr<std::remove_pointer_t<fftw_plan>, DestroyPlan>;

/// Estimated, not measured: a measured plan may differ from run to run, and the last bits of the
/// results with it.
Plan makePlan(std::size_t size, double* input, std::complex<double>* output) {
  Plan plan(fftw_plan_dft_r2c_1d(static_cast<int>(size), input, asLibraryType(output),
                                 FFTW_ESTIMATE | FFTW_PRESERVE_INPUT));
  if (!plan) throw std::runtime_error("cannot plan a transform");
  return plan;
}

/// The one plan of a size. It fits every pair of buffers, since all are aligned alike.
fftw_plan planFor(std::size_t size, double* input, std::complex<double>* output) {
  static std::mutex mutex;
  static std::map<std::size_t, Plan> plans;
  const std::scoped_lock lock(mutex);
  auto found = plans.find(size);
  if (found == plans.end()) found = plans.emplace(size, makePlan(size, input, output)).first;
  return found->second.get();
}

}  // namespace

struct RealTransform::State {
  explicit State(std::size_t count)
      : size(count),
        input(allocate<RealValues>(count)),
        output(allocate<ComplexValues>(count / 2 + 1)),
        plan(planFor(count, input.get(), output.get())) {}

  std::size_t size;
  RealValues input;
  ComplexValues output;
  fftw_plan plan;
};

RealTransform::RealTransform(std::size_t size) {
  assert(size > 0);
  m_state = std::make_unique<State>(size);
}

RealTransform::RealTransform(RealTransform&&) noexcept = default;
RealTransform& RealTransform::operator=(RealTransform&&) noexcept = default;
RealTransform::~RealTransform() = default;

void RealTransform::run() {
  fftw_execute_dft_r2c(m_state->plan, m_state->input.get(), asLibraryType(m_state->output.get()));
}

std::span<double> RealTransform::input() { return {m_state->input.get(), m_state->size}; }

std::span<const std::complex<double>> RealTransform::output() const {
  return {m_state->output.get(), m_state->size / 2 + 1};
}

}  // namespace korvel::platform
