// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/text/XmlDocument.h"

namespace korvel::exchange {

/// What a player writes for a `harmony` of MusicXML, such as "F#m7/C#"; empty for "N.C.", none for
/// one that names no chord by its root, such as "V7".
std::optional<std::string> harmonyName(const platform::XmlDocument::Element& harmony);

}  // namespace korvel::exchange
