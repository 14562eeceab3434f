// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QPageSize>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "ui/paper/PaperWork.h"

class QPagedPaintDevice;

namespace korvel::ui {

enum class PaperFormat { pdf, png, svg };

/// By the ending of a name, large or small.
std::optional<PaperFormat> paperFormatOf(std::string_view file);

/// The size of paper that is used where the user lives.
QPageSize usualPaper();

/// Writes onto the papers of a printer or a PDF writer, in black on white, with the title and page
/// numbers at the foot. False when the device cannot be painted on.
bool printOn(QPagedPaintDevice& device, const PaperWork& work);

/// The bytes of files of it. As pictures it is as wide as the paper and as high as it needs, all
/// in one file; only a PNG that would be higher than most programs open is cut into several. Throws
/// std::runtime_error when there is no room for it.
std::vector<QByteArray> drawnAs(PaperFormat format, const PaperWork& work, const QPageSize& paper);

/// Whether a file that is there already may be replaced.
using MayReplace = std::function<bool(const std::filesystem::path& file)>;

/// Writes files of it, as the ending of the name says, PDF for any other. Each appears whole or not
/// at all. Where they get other names than this one, mayReplace is asked for those that exist, and
/// none is written when it says no. Answers their names. Throws platform::FileError.
std::vector<std::filesystem::path> savePaper(const PaperWork& work,
                                             const std::filesystem::path& file,
                                             const MayReplace& mayReplace = {});

}  // namespace korvel::ui
