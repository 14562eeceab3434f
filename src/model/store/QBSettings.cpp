// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/QBSettings.h"

#include "model/instruments/QBTuning.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBSettings::describe() {
  return platform::EntityBuilder<QBSettings>("QBSettings")
      .root()
      .attribute<&QBSettings::m_workDir>("workDir")
      .toOne<&QBSettings::m_activeTuning>("activeTuning", "QBTuning")
      .build();
}

QBTuning* QBSettings::activeTuning() const { return target(m_activeTuning); }

void QBSettings::setActiveTuning(QBTuning* value) { relate(m_activeTuning, value); }

std::string QBSettings::tempDirectory() const { return workDir() + "Temp/"; }

std::string QBSettings::waveDirectory() const { return workDir() + "Waves/"; }

std::string QBSettings::tabDirectory() const { return workDir() + "Tab/"; }

std::string QBSettings::xmlDirectory() const { return workDir() + "Xml/"; }

}  // namespace korvel
