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

/// A counted reference to a Counted object, or nothing.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(T* object) : m_object(object) {
    if (m_object) m_object->retain();
  }
  Ref(const Ref& other) : Ref(other.m_object) {}
  Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }
  ~Ref() {
    if (m_object) m_object->release();
  }

  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  T& operator*() const { return *m_object; }
  operator T*() const { return m_object; }

 private:
  T* m_object = nullptr;
};

}  // namespace korvel::platform
