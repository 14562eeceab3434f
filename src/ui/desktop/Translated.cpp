// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Translated.h"

#include <QCoreApplication>

#include "platform/text/UserError.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {

QString translated(const platform::UserText& text) {
  return toText(text.in([](const platform::Phrase& phrase) {
    return QCoreApplication::translate(phrase.context, phrase.english).toStdString();
  }));
}

QString translated(const std::exception& problem) { return translated(platform::textOf(problem)); }

QString refusalOf(const std::function<void()>& act) {
  try {
    act();
    return {};
  } catch (const platform::UserError& problem) {
    return translated(problem);
  }
}

}  // namespace korvel::ui
