// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/NotificationCenter.h"

#include <algorithm>
#include <utility>

namespace korvel::platform {

NotificationCenter::Observer::Observer(NotificationCenter& center, std::string name,
                                       Handler handler)
    : m_center(center), m_name(std::move(name)), m_handler(std::move(handler)) {
  const std::lock_guard lock(m_center.m_lock);
  m_center.m_observers.push_back(this);
}

NotificationCenter::Observer::~Observer() {
  const std::lock_guard lock(m_center.m_lock);
  m_center.m_observers.remove(this);
}

NotificationCenter& NotificationCenter::defaultCenter() {
  static NotificationCenter center;
  return center;
}

std::unique_ptr<NotificationCenter::Observer> NotificationCenter::observe(std::string name,
                                                                          Handler handler) {
  return std::make_unique<Observer>(*this, std::move(name), std::move(handler));
}

void NotificationCenter::post(std::string_view name) {
  const std::lock_guard lock(m_lock);
  const auto observers = m_observers;
  for (const Observer* observer : observers) {
    if (!isObserving(observer) || observer->m_name != name) continue;
    const Handler handler = observer->m_handler;  // outlives an observer that it ends
    handler();
  }
}

bool NotificationCenter::isObserving(const Observer* observer) const {
  return std::ranges::find(m_observers, observer) != m_observers.end();
}

}  // namespace korvel::platform
