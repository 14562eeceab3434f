// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;
class QBTabMgr;

/// Makes names that are still free: of derived songs, the source's title with a tag that says what
/// was done to it.
class QBNameMgr {
 public:
  /// The album may be none when only an album's name is wanted.
  QBNameMgr(QBAlbum* album, std::string name);
  ~QBNameMgr();

  /// Appends a tag and answers a name that is free in the album. The commands of the song menu have
  /// their tags in their rows (`SongCommand::tag`).
  std::string tagged(std::string_view tag);

  // The same with the tag of an operation of that name.
  std::string toMelody() { return tagged("(Mld)"); }
  std::string toBrass() { return tagged("(Brs)"); }
  std::string toMelodyBrass() { return tagged("(MldBrs)"); }
  std::string toVoice(int voice) { return tagged("(Vc", voice); }
  std::string removeVoice(int voice) { return tagged("(-Vc", voice); }
  std::string removeMelodyBrass() { return tagged("(-MldBrs)"); }
  std::string removeBrass() { return tagged("(-Brs)"); }
  std::string removeOptions() { return tagged("(-Opts)"); }
  /// voices: how many are kept, the outer ones counted in.
  std::string extractLeadingVoices(int voices) { return tagged("(Ldng", voices); }
  std::string extractVoicings() { return tagged("(Vcngs)"); }
  std::string removeNonChordTones() { return tagged("(-NnChrd)"); }
  std::string transformUp(int halfTones) { return tagged("(UpBy", halfTones); }
  std::string transformDown(int halfTones) { return tagged("(DwnBy", halfTones); }
  /// First and last position.
  std::string extractPartChords(int from, int to);
  std::string extractPlectrumLead() { return tagged("(PlctLead)"); }
  std::string extractPlectrumSecond() { return tagged("(Plct2nd)"); }
  std::string extractPlectrumThird() { return tagged("(Plct3rd)"); }
  std::string pushDownStrings() { return tagged("(Psh)"); }
  std::string toLeftHand() { return tagged("(Lft)"); }
  std::string toRightHand() { return tagged("(Rght)"); }
  std::string toLeftRightHand() { return tagged("(L+R)"); }
  std::string toRightLeftHand() { return tagged("(R+L)"); }
  std::string copySong() { return tagged("(Cpy)"); }
  std::string optimizeChords() { return tagged("(Optm)"); }
  std::string applyPicking() { return tagged("(Atck)"); }
  /// count: how many tones are kept.
  std::string applyLoudest(int count) { return tagged("(Lds ", count); }
  std::string removeSilent() { return tagged("(-Slnt)"); }
  std::string applyMetric(int beat, int beattype);
  std::string cleanChords() { return tagged("(Cleaned)"); }
  std::string findBestFingering() { return tagged("(Fng)"); }
  std::string trimToPlayable() { return tagged("(trimmed)"); }

  /// The name, with "_2" appended until no song of the album has it.
  std::string newName();
  /// The name, with "_2" appended until no album has it.
  std::string newAlbumName(const QBTabMgr& db);

 private:
  std::string tagged(std::string_view tag, int number);

  platform::Ref<QBAlbum> m_album;
  std::string m_name;
};

}  // namespace korvel
