// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBTuning;

/// The application's settings; a store holds one.
class QBSettings final : public platform::ManagedObject {
 public:
  static platform::EntityDescription describe();

  /// Working directory, ending in a separator.
  const std::string& workDir() const { return read(m_workDir); }
  void setWorkDir(std::string value) { assign(m_workDir, std::move(value)); }
  /// The tuning that new songs get.
  QBTuning* activeTuning() const;
  void setActiveTuning(QBTuning* value);

  std::string tempDirectory() const;
  std::string waveDirectory() const;
  std::string tabDirectory() const;
  std::string xmlDirectory() const;

 private:
  platform::Attribute<std::string> m_workDir;
  platform::ToOne<QBTuning> m_activeTuning;
};

}  // namespace korvel
