// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <stdexcept>
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

/// What an exception says to the user: what() where it has no text of that kind, but a sentence
/// where memory has ended.
UserText textOf(const std::exception& exception);

}  // namespace korvel::platform
