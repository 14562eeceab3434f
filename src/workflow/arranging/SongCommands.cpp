// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongCommands.h"

#include <algorithm>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

template <auto Operation, auto... Arguments>
QBSong* via(QBSong& song) {
  return (song.*Operation)(Arguments...);
}

template <int... Options>
QBSong* withoutOptions(QBSong& song) {
  return song.removeOptions({Options...});
}

/// Long tones first, so that they can be counted; the song of long tones is only a step. It goes,
/// and the title is set, before anybody sees the new song, so that every view has its final title.
template <int Beat, int Beattype>
QBSong* laidIntoMetre(QBSong& song) {
  QBAlbum& album = song.requireAlbum();
  const std::string name = QBNameMgr(&album, song.title()).applyMetric(Beat, Beattype);
  QBSong* picked = song.toPicking();
  QBSong* measured = picked->applyMetric(Beat, Beattype);
  album.deleteSong(picked);
  measured->setTitle(name);
  measured->buildTab();
  return measured;
}

// The texts are known to users by heart, the odd ones too; none is to be corrected.

constexpr SongCommand kStandard[] = {
    {"All Standard Filters", "applyChain", "extractChainStandard", "", nullptr,
     &QBSongNode::extractChainStandard},
    {"Detect Voicings", "extractVoicings", "extractVoicings", "Voicings extracted.",
     via<&QBSong::extractVoicings, 4>},
    {"Simplify Left Hand", "optimizeLeftHand", "toLeftHand", "Song optimized for left hand.",
     via<&QBSong::toLeftHand>},
    {"Simplify Right Hand", "optimizeRightHand", "toRightHand", "Song optimized for right hand.",
     via<&QBSong::toRightHand>},
    {"Push Down Strings", "pushDownStrings", "pushDownStrings", "Voices pushed down.",
     via<&QBSong::pushDownStrings>},
    {"Clean Chords", "cleanChords", "cleanChords", "Chords cleaned.", via<&QBSong::cleanChords>},
    {"Find Best Fingering", "findBestFingering", "findBestFingering", "Best fingering found.",
     via<&QBSong::findBestFingering>},
    {"Trim To Playable", "trimToPlayable", "trimToPlayable", "Song trimmed.",
     via<&QBSong::trimToPlayable>},
};

constexpr SongCommand kPlectrum[] = {
    {"Extract Lead (1st)", "extractPlectrumFirst", "extractPlectrumLead",
     "Plectrum Lead line extracted.", via<&QBSong::extractPlectrumLead>},
    {"Extract 2nd", "extractPlectrumSecond", "extractPlectrumSecond",
     "Plectrum Second line extracted.", via<&QBSong::extractPlectrumSecond>},
    {"Extract 3rd", "extractPlectrumThird", "extractPlectrumThird",
     "Plectrum Third line extracted.", via<&QBSong::extractPlectrumThird>},
};

constexpr SongCommand kRhythm[] = {
    {"3/4", "applyRhythmn3_4", "extract3_4", "3/4 Metric added.", laidIntoMetre<3, 4>},
    {"4/4", "applyRhythmn4_4", "extract4_4", "4/4 Metric added", laidIntoMetre<4, 4>},
    {"6/8", "applyRhythmn6_8", "extract6_8", "6/8 Metric added.", laidIntoMetre<6, 8>},
    {"12/8", "applyRhythmn12_18", "extract12_8", "12/8 Metric added.", laidIntoMetre<12, 8>},
};

constexpr SongCommand kVoices[] = {
    {"Leading Three", "extractLeadingThree", "extractThree", "Leading three voices extracted.",
     via<&QBSong::extractMiddleVoices, 1>},
    {"Leading Four", "extractLeadingFour", "extractFour", "Leading voices extracted.",
     via<&QBSong::extractMiddleVoices, 2>},
    {"Leading Five", "extractLeadingFive", "extractFive", "Leading Five voices extracted.",
     via<&QBSong::extractMiddleVoices, 3>},
    {"Leading Six", "extractLeadingSix", "extractSix", "Leading Six voices extracted.",
     via<&QBSong::extractMiddleVoices, 4>},
    {"Melody and Brass", "extractLeadingMelodyAndBrass", "extractMelBrass",
     "Melody and Brass extracted.", via<&QBSong::toMelodyBrass>},
    {"Melody", "extractLeadingMelody", "extractMelody", "Melody extracted.",
     via<&QBSong::toMelody>},
    {"Brass", "extractLeadingBrass", "extractBrass", "Bass extracted.", via<&QBSong::toBrass>},
    {"2nd", "extractSecond", "extractSecondVoice", "Second voice extracted.",
     via<&QBSong::toVoice, 1>},
    {"3rd", "extractThird", "extractThirdVoice", "Third voice extracted.",
     via<&QBSong::toVoice, 2>},
    {"4th", "extractFourth", "extractFourthVoice", "Fourth voice extracted.",
     via<&QBSong::toVoice, 3>},
    {"5th", "extractFifth", "extractFifthVoice", "Fifth voice extracted.",
     via<&QBSong::toVoice, 4>},
};

constexpr SongCommand kLoudest[] = {
    {"Loudest Two", "extractLoudestTwo", "applyLoudestTwo", "Apply loudest two tones.",
     via<&QBSong::applyLoudest, 2>},
    {"Loudest Three", "extractLoudestThree", "applyLoudestThree", "Apply loudest three tones.",
     via<&QBSong::applyLoudest, 3>},
    {"Loudest Four", "extractLoudestFour", "applyLoudestFour", "Apply loudest four tones.",
     via<&QBSong::applyLoudest, 4>},
    {"Loudest Five", "extractLoudestFive", "applyLoudestFive", "Apply loudest five tones.",
     via<&QBSong::applyLoudest, 5>},
    {"Loudest Six", "extractLoudestSix", "applyLoudestSix", "Apply loudest six tones.",
     via<&QBSong::applyLoudest, 6>},
};

constexpr SongCommand kOptions[] = {
    {"Remove Non Harmony Tones", "removeNonHarmonyTones", "removeNonChordTones",
     "Non-Chord Tones removed.", via<&QBSong::removeNonChordTones>},
    {"Remove the Seven", "removeSeven", "removeFourthOption", "4th chord option removed.",
     withoutOptions<3>},
    {"Remove the Nine", "removeNine", "removeFifthOption", "5th chord option removed.",
     withoutOptions<4>},
    {"Remove the Eleven", "removeEleven", "removeSixthOption", "6th chord option removed.",
     withoutOptions<5>},
    {"All from Seven", "removeAllFromSeven", "removeOptionsFromFourth",
     "Chord options from 4th removed.", withoutOptions<3, 4, 5, 6>},
    {"All from Nine", "removeAllFromNine", "removeOptionsFromFifth",
     "Chord options from 5th removed.", withoutOptions<4, 5, 6>},
    {"All from Eleven", "removeAllFromEleven", "removeOptionsFromSixth",
     "Chord options from 6th removed.", withoutOptions<5, 6>},
};

constexpr SongCommand kRemovedVoices[] = {
    {"Remove Melody and Brass", "removeMelodyAndBrass", "removeMelBrass",
     "Melody and Brass removed.", via<&QBSong::removeMelodyBrass>},
    {"Remove Melody", "removeMelody", "removeMelody", "Melody removed.",
     via<&QBSong::removeVoice, 0>},
    {"Remove Brass", "removeBrass", "removeBrass", "Brass removed.", via<&QBSong::removeBrass>},
    {"Remove 2nd Voice", "removeSecondVoice", "removeSecondVoice", "2nd voice removed.",
     via<&QBSong::removeVoice, 1>},
    {"Remove 3nd Voice", "removeThirdVoice", "removeThirdVoice", "3rd voice removed.",
     via<&QBSong::removeVoice, 2>},
    {"Remove 4th Voice", "removeFourthVoice", "removeFourthVoice", "4th voice removed.",
     via<&QBSong::removeVoice, 3>},
    {"Remove 5th Voice", "removeFifthVoice", "removeFifthVoice", "5th voice removed.",
     via<&QBSong::removeVoice, 4>},
};

constexpr SongCommand kUp[] = {
    {"One Half Tone", "transposeUpByOne", "transposeUpBy1", "Song transposed up by one half tone.",
     via<&QBSong::transformUp, 1>},
    {"A Second (2 Half Tones)", "transposeUpByTwo", "transposeUpBy2",
     "Song transposed up by one tone.", via<&QBSong::transformUp, 2>},
    {"A small Terz (3 Half Tones)", "transposeUpByThree", "transposeUpBy3",
     "Song transposed up by a minor terz.", via<&QBSong::transformUp, 3>},
    {"A Terz (4 Half Tones)", "transposeUpByFour", "transposeUpBy4",
     "Song transposed up by a major terz.", via<&QBSong::transformUp, 4>},
    {"A Quarter (5 Half Tones )", "transposeUpByFive", "transposeUpBy5",
     "Song transposed up by a quart.", via<&QBSong::transformUp, 5>},
    {"Tritonus (6 Half Tones)", "transposeUpBySix", "transposeUpBy6",
     "Song transposed up by a tritonus.", via<&QBSong::transformUp, 6>},
    {"A Quinta (7 Half Tones)", "transposeUpBySeven", "transposeUpBy7",
     "Song transposed up by a quinta.", via<&QBSong::transformUp, 7>},
    {"A Minor Six (8 Half Tones)", "transposeUpByEight", "transposeUpBy8",
     "Song transposed up by a minor six.", via<&QBSong::transformUp, 8>},
    {"A Six (9 Half Tones)", "transposeUpByNine", "transposeUpBy9", "Song transposed up by a six.",
     via<&QBSong::transformUp, 9>},
    {"A Minor Seven (10 Half Tones)", "transposeUpByTen", "transposeUpBy10",
     "Song transposed up by a minor sept.", via<&QBSong::transformUp, 10>},
    {"A Major Seven (11 Half Tones)", "transposeUpByEleven", "transposeUpBy11",
     "Song transposed up by a major sept.", via<&QBSong::transformUp, 11>},
};

constexpr SongCommand kDown[] = {
    {"One Half Tone", "transposeDownByOne", "transposeDownBy1",
     "Song transposed down by one half tone.", via<&QBSong::transformDown, 1>},
    {"A Second (2 Half Tones)", "transposeDownByTwo", "transposeDownBy2",
     "Song transposed down by one tone.", via<&QBSong::transformDown, 2>},
    {"A Small Terz (3 Half Tones)", "transposeDownByThree", "transposeDownBy3",
     "Song transposed down by a minor terz.", via<&QBSong::transformDown, 3>},
    {"A Terz (4 Half Tones)", "transposeDownByFour", "transposeDownBy4",
     "Song transposed down by a major terz.", via<&QBSong::transformDown, 4>},
    {"A Quarter (5 Half Tones)", "transposeDownByFive", "transposeDownBy5",
     "Song transposed down by a quart.", via<&QBSong::transformDown, 5>},
    {"Tritonus (6 Half Tones)", "transposeDownBySix", "transposeDownBy6",
     "Song transposed down by a tritonus.", via<&QBSong::transformDown, 6>},
    {"A Quinta (7 Half Tones)", "transposeDownBySeven", "transposeDownBy7",
     "Song transposed down by a quinta.", via<&QBSong::transformDown, 7>},
    {"A Small Six (8 Half Tones)", "transposeDownByEight", "transposeDownBy8",
     "Song transposed down by a minor six.", via<&QBSong::transformDown, 8>},
    {"A Six (9 Half Tones)", "transposeDownByNine", "transposeDownBy9",
     "Song transposed down by a six.", via<&QBSong::transformDown, 9>},
    {"A Minor Seven (10 Half Tones)", "transposeDownByTen", "transposeDownBy10",
     "Song transposed down by a minor sept.", via<&QBSong::transformDown, 10>},
    {"A Major Seven (11 Half Tones)", "transposeDownByEleven", "transposeDownBy11",
     "Song transposed down by a major sept.", via<&QBSong::transformDown, 11>},
};

constexpr SongCommand kPlain[] = {
    {"Export To Textfile", "exportAsFile", "exportAsFile", "", nullptr, &QBSongNode::exportAsFile},
    {"Clone", "cloneSong", "copySong", "", nullptr, &QBSongNode::copySong},
    {"Delete", "deleteSong", "deleteSong", "", nullptr, &QBSongNode::deleteSong},
};

constexpr SongMenuSection kMenu[] = {
    {"Apply Standard Filters", kStandard},
    {"Apply Plectrum Filters", kPlectrum},
    {"Apply Rhythmn Filters", kRhythm, "Apply "},
    {},
    {"Extract Voices", kVoices, "Extract "},
    {"Extract Loudest Voices", kLoudest, "Extract "},
    {},
    {"Remove Options", kOptions, "Remove "},
    {"Remove Voices", kRemovedVoices},
    {},
    {"Transpose Up By", kUp, "Transpose Up By "},
    {"Transpose Down By", kDown, "Transpose Down By "},
    {},
    {"", kPlain},
};

const SongCommand* find(std::string_view SongCommand::*name, std::string_view wanted) {
  for (const SongMenuSection& section : kMenu) {
    const auto found = std::ranges::find(section.items, wanted, name);
    if (found != section.items.end()) return &*found;
  }
  return nullptr;
}

}  // namespace

std::span<const SongMenuSection> songMenu() { return kMenu; }

std::string undoTitle(const SongCommand& command) {
  for (const SongMenuSection& section : kMenu) {
    const bool here =
        &command >= section.items.data() && &command < section.items.data() + section.items.size();
    if (here && !command.title.starts_with(section.verb))
      return std::string(section.verb).append(command.title);
  }
  return std::string(command.title);
}

const SongCommand* findSongCommand(std::string_view command) {
  return find(&SongCommand::command, command);
}

const SongCommand* findSongAction(std::string_view action) {
  return find(&SongCommand::action, action);
}

}  // namespace korvel
