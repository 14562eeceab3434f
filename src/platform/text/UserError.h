// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <stdexcept>
#include <typeinfo>
#include <utility>

#include "platform/text/UserText.h"

namespace korvel::platform {

/// What exceptions have whose text is for users: it can be told in their language, while what()
/// says it in English.
class Worded {
 public:
  explicit Worded(UserText text) : m_text(std::move(text)) {}
  virtual ~Worded() = default;

  const UserText& text() const { return m_text; }
  /// What reports of errors call it: its own class, unless it only gives words to another one.
  virtual const std::type_info& reportedAs() const { return typeid(*this); }

 protected:
  Worded(const Worded&) = default;
  Worded& operator=(const Worded&) = default;

 private:
  UserText m_text;
};

/// Something that did not work: the text says what happened and what to do.
class UserError : public std::runtime_error, public Worded {
 public:
  explicit UserError(const UserText& text) : std::runtime_error(text.english()), Worded(text) {}
  /// As UserText is made.
  template <class... Arguments>
  explicit UserError(const Phrase& phrase, const Arguments&... arguments)
      : UserError(UserText(phrase, arguments...)) {}
};

/// A standard exception that has words for users, and is caught and reported as what it was before.
template <class Standard>
class WordedAs : public Standard, public Worded {
 public:
  explicit WordedAs(const UserText& text) : Standard(text.english()), Worded(text) {}

  const std::type_info& reportedAs() const override { return typeid(Standard); }
};

/// What an exception says to the user: what() where it has no text of that kind, but a sentence
/// where memory has ended.
UserText textOf(const std::exception& exception);

}  // namespace korvel::platform
