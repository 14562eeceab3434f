// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <memory>

#include "workflow/exchange/PieceImport.h"

namespace korvel {
class QBAlbum;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

/// Imports files of other programs as jobs, and asks for the track where there are several guitars.
class PieceImports final : public QObject {
  Q_OBJECT

 public:
  /// Dialogs stand over the window.
  explicit PieceImports(QWidget* window);

  /// Whether the file is one of those, by its content.
  static bool takes(const QString& file);
  /// Into the album, or one after its artist or name.
  void begin(const QString& file, QBAlbum* into);

 signals:
  void started(const QString& file);
  void imported(const QString& file, QBSong* song);
  /// text: why no song can be made of it, in one line.
  void refused(const QString& text);

 private:
  void read(const QString& file, QBAlbum* into);
  void run(const std::shared_ptr<PieceImport>& job, const QString& file);

  QWidget* m_window;
};

}  // namespace korvel::ui
