// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

class QVBoxLayout;

namespace korvel {
class ImportDesk;
class QBSong;
}  // namespace korvel

namespace korvel::ui {

class RecordingMenu;

/// What the window offers on bars while imports and recordings run, which go on meanwhile: nothing
/// waits for an answer, and without one nothing happens.
class Offers final : public QObject {
  Q_OBJECT

 public:
  /// place: where the bars come, on top. All outlive this.
  Offers(QVBoxLayout& place, ImportDesk& desk, RecordingMenu& recordings, QObject* parent);

  /// The known song instead of one that is heard anew. drop: ends that import.
  void offerKnown(QBSong* known, const std::function<void()>& drop);
  /// hear: has the song heard again in the tuning.
  void offerTuning(QBSong* song, const QString& tuning, const std::function<void()>& hear);
  /// To keep copies of recordings, this one's first: once, at the first import. Until that is
  /// answered yes nothing is kept.
  void offerToKeep(const QString& file);
  /// To say where the recording of the song is now.
  void offerToFind(QBSong* song, const QString& recording);

 private:
  void offer(const QString& question, std::function<void()> accept);

  QVBoxLayout& m_place;
  ImportDesk& m_desk;
  RecordingMenu& m_recordings;
};

}  // namespace korvel::ui
