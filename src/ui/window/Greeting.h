// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBoxLayout>
#include <QObject>
#include <functional>

#include "workflow/hearing/ImportDesk.h"

namespace korvel::ui {

/// What a start has to tell and to ask.
class Greeting final : public QObject {
  Q_OBJECT

 public:
  /// Questions are put at the top of the place, which outlives this.
  explicit Greeting(QBoxLayout& place, QObject* parent = nullptr);

  /// Has go on what was left to this start, says what was running when the last window did not
  /// close, offers to import what it was recording, and a working directory to a user who has songs
  /// and was not asked yet. A store that cannot be written it says.
  void say();

 signals:
  /// A line for the log.
  void told(const QString& text);
  void importWanted(const QStringList& files);
  /// A song is to be heard again.
  void goOnWanted(const ImportUnderWay& left);
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void offer(const QString& question, std::function<void()> accept);
  void offerTakes();
  void offerToHear(const QBSong& song);
  void offerWorkFolder();
  void takeUp(const ImportUnderWay& import);
  void tellOfInterrupted(const ImportUnderWay& import);
  void tellOfReadOnlyStore();
  void attempt(const std::function<void()>& act);

  QBoxLayout& m_place;
};

}  // namespace korvel::ui
