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
  std::string toMelody() { return taggedAs("extractMelody"); }
  std::string toBrass() { return taggedAs("extractBrass"); }
  std::string toMelodyBrass() { return taggedAs("extractMelBrass"); }
  std::string toVoice(int voice) { return tagged("(Vc", voice); }
  std::string removeVoice(int voice) { return tagged("(-Vc", voice); }
  std::string removeMelodyBrass() { return taggedAs("removeMelBrass"); }
  std::string removeBrass() { return taggedAs("removeBrass"); }
  std::string removeOptions() { return taggedAs("removeFourthOption"); }
  /// voices: how many are kept, the outer ones counted in.
  std::string extractLeadingVoices(int voices) { return tagged("(Ldng", voices); }
  std::string extractVoicings() { return tagged("(Vcngs)"); }
  std::string removeNonChordTones() { return taggedAs("removeNonChordTones"); }
  std::string transformUp(int halfTones) { return tagged("(UpBy", halfTones); }
  std::string transformDown(int halfTones) { return tagged("(DwnBy", halfTones); }
  /// First and last position.
  std::string extractPartChords(int from, int to);
  std::string extractPlectrumLead() { return taggedAs("extractPlectrumLead"); }
  std::string extractPlectrumSecond() { return taggedAs("extractPlectrumSecond"); }
  std::string extractPlectrumThird() { return taggedAs("extractPlectrumThird"); }
  std::string pushDownStrings() { return taggedAs("pushDownStrings"); }
  std::string toLeftHand() { return taggedAs("toLeftHand"); }
  std::string toRightHand() { return taggedAs("toRightHand"); }
  std::string toLeftRightHand() { return tagged("(L+R)"); }
  std::string toRightLeftHand() { return tagged("(R+L)"); }
  std::string copySong() { return tagged("(Cpy)"); }
  std::string optimizeChords() { return tagged("(Optm)"); }
  std::string applyPicking() { return tagged("(Atck)"); }
  /// count: how many tones are kept.
  std::string applyLoudest(int count) { return tagged("(Lds ", count); }
  std::string removeSilent() { return tagged("(-Slnt)"); }
  std::string applyMetric(int beat, int beattype);

  /// The name, with "_2" appended until no song of the album has it.
  std::string newName();
  /// The name, with "_2" appended until no album has it.
  std::string newAlbumName(const QBTabMgr& db);

 private:
  /// Tagged as the song that this command derives.
  std::string taggedAs(std::string_view command);
  std::string tagged(std::string_view tag, int number);

  platform::Ref<QBAlbum> m_album;
  std::string m_name;
};

}  // namespace korvel
