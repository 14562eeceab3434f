// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <filesystem>
#include <functional>

class QPagedPaintDevice;
class QPainter;
class QRectF;

namespace korvel::ui {

/// Writes pages; false when the device cannot be painted on.
using PrintPages = std::function<bool(QPagedPaintDevice& device)>;

/// Into a PDF file with a common margin, which appears whole or not at all. Throws
/// platform::FileError.
void savePdf(const QString& title, const PrintPages& print, const std::filesystem::path& file);

/// The line at the foot of a page: title and numbers, page from 1 on.
void drawFoot(QPainter& painter, const QRectF& paper, const QString& title, std::size_t page,
              std::size_t pages);

}  // namespace korvel::ui
