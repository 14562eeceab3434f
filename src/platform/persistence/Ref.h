// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <utility>

namespace korvel::platform {

/// Base of everything that is shared by counting. The count is not atomic: such objects belong to
/// the main thread.
class Counted {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  virtual ~Counted() = default;

  void retain() const { ++m_count; }
  void release() const {
    if (--m_count == 0) delete this;
  }

 private:
  mutable std::size_t m_count = 0;
};

/// A counted reference to a Counted object, or nothing. Copied and dropped without knowing the
/// whole of T, so that headers can hold references to classes that they only name.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(T* object) : m_object(object), m_counted(object) {
    if (m_counted) m_counted->retain();
  }
  Ref(const Ref& other) : m_object(other.m_object), m_counted(other.m_counted) {
    if (m_counted) m_counted->retain();
  }
  Ref(Ref&& other) noexcept
      : m_object(std::exchange(other.m_object, nullptr)),
        m_counted(std::exchange(other.m_counted, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(m_object, other.m_object);
    std::swap(m_counted, other.m_counted);
    return *this;
  }
  ~Ref() {
    if (m_counted) m_counted->release();
  }

  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  operator T*() const { return m_object; }

 private:
  T* m_object = nullptr;
  const Counted* m_counted = nullptr;
};

}  // namespace korvel::platform
