// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace korvel::platform {

/// Tells whoever wants to know that something happened, without knowing them. For any thread.
class NotificationCenter {
 public:
  using Handler = std::function<void()>;

  /// The registration of one observer, whose handler does not run any more once this is destroyed.
  class Observer {
   public:
    Observer(NotificationCenter& center, std::string name, Handler handler);
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;
    ~Observer();

   private:
    friend NotificationCenter;
    NotificationCenter& m_center;
    const std::string m_name;
    const Handler m_handler;
  };

  /// The center that everything in the process shares.
  static NotificationCenter& defaultCenter();

  /// Calls the handler until the observer ends, on the thread of whoever posts; it must not wait
  /// for another thread, and may end observers, its own too.
  [[nodiscard]] std::unique_ptr<Observer> observe(std::string name, Handler handler);
  void post(std::string_view name);

 private:
  bool isObserving(const Observer* observer) const;

  std::recursive_mutex m_lock;  ///< Kept while handlers run, so that an observer can end safely.
  std::list<Observer*> m_observers;
};

}  // namespace korvel::platform
