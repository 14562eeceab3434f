// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/InputList.h"

#include "platform/sound/AudioSystem.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"

namespace korvel::ui {

InputList::InputList(QWidget* parent) : QComboBox(parent) {
  setAccessibleName(tr("Device to record from"));
  setAccessibleDescription(accessibleName());  // where the chosen entry counts as the name
  connect(this, &QComboBox::textActivated, this, [this](const QString& name) {
    Preferences().setInput(currentIndex() == 0 ? QString() : name);
  });
}

void InputList::list() {
  clear();
  try {
    for (const std::string& name : platform::AudioSystem::main().inputs()) addItem(toText(name));
  } catch (const platform::AudioError& problem) {
    addItem(toText(platform::AudioSystem::kSystemDefault));
    setToolTip(translated(problem));
  }
  setItemText(0, translated(platform::AudioSystem::kDefaultDevice));
  const QString chosen = Preferences().input();
  // It is recorded from, or complained of, while it is unplugged.
  if (!chosen.isEmpty() && findText(chosen) < 0) addItem(chosen);
  setCurrentIndex(std::max(0, findText(chosen)));
}

}  // namespace korvel::ui
