// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <coroutine>
#include <exception>
#include <utility>

namespace korvel::platform {

/// Work that is done a little at a time: a function that answers Slices stops wherever it writes
/// `co_yield done`, the share of its work that is done, 0..1, and goes on when it is asked to.
/// Destroy it to stop for good.
class Slices {
 public:
  struct promise_type {
    double done = 0;
    std::exception_ptr failure;

    Slices get_return_object() { return Slices(Handle::from_promise(*this)); }
    std::suspend_always initial_suspend() noexcept { return {}; }
    std::suspend_always final_suspend() noexcept { return {}; }
    std::suspend_always yield_value(double share) noexcept {
      done = share;
      return {};
    }
    void return_void() noexcept { done = 1; }
    void unhandled_exception() noexcept { failure = std::current_exception(); }
  };

  Slices() = default;
  Slices(Slices&& other) noexcept : m_handle(std::exchange(other.m_handle, {})) {}
  Slices& operator=(Slices&& other) noexcept {
    std::swap(m_handle, other.m_handle);
    return *this;
  }
  ~Slices() {
    if (m_handle) m_handle.destroy();
  }

  /// Works on to the next stop; false when there is nothing left to do.
  bool next() {
    if (!m_handle || m_handle.done()) return false;
    m_handle.resume();
    if (m_handle.promise().failure) std::rethrow_exception(m_handle.promise().failure);
    return !m_handle.done();
  }

  /// Does all that is left.
  void finish() {
    while (next()) continue;
  }

  /// There is something left to do.
  bool isUnderWay() const { return m_handle && !m_handle.done(); }
  double done() const { return m_handle ? m_handle.promise().done : 0; }

 private:
  using Handle = std::coroutine_handle<promise_type>;

  explicit Slices(Handle handle) : m_handle(handle) {}

  Handle m_handle;
};

}  // namespace korvel::platform
