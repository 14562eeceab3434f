// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/SongFormats.h"

#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

QString extensionText(SongFormat format) { return toText(extensionOf(format)); }

}  // namespace

QString nameOf(const FormatName& format) {
  return QCoreApplication::translate("SongFormat", format.name);
}

QString filterOf(const FormatName& format) {
  return nameOf(format) + " (*" + extensionText(format.format) + ')';
}

QString endingOf(std::size_t format) {
  return format < kFormats.size() ? extensionText(kFormats.at(format).format) : QString(".wav");
}

std::optional<std::size_t> formatNamedBy(const QString& file) {
  const auto ends = [&](const QString& ending) {
    return file.endsWith(ending, Qt::CaseInsensitive);
  };
  for (std::size_t format = 0; format <= kFormats.size(); ++format)
    if (ends(endingOf(format))) return format;
  for (std::size_t format = 0; format < kFormats.size(); ++format)
    if (ends(kFormats.at(format).otherEnding)) return format;
  return std::nullopt;
}

}  // namespace korvel::ui
