// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongCommands.h"

#include <algorithm>

#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "arrange/voices/QBExtractMelodyBrass.h"
#include "arrange/voices/QBExtractVoice.h"
#include "arrange/voices/QBRemoveBrass.h"
#include "arrange/voices/QBRemoveMelodyBrass.h"
#include "arrange/voices/QBRemoveVoice.h"
#include "tab/filters/BestFingering.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/HandArrangements.h"
#include "workflow/arranging/HarmonyArrangements.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/arranging/VoiceArrangements.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

// The operations of a row, with what they are given beside the song.

template <int Count>
QBSong* middleVoices(QBSong& song, const std::string& title) {
  return extractMiddleVoices(song, Count, title);
}

QBSong* voicingsSeenFourTimes(QBSong& song, const std::string&) { return extractVoicings(song, 4); }

template <int Beat, int Beattype>
QBSong* inMetre(QBSong& song, const std::string& title) {
  return laidIntoMetre(song, Beat, Beattype, title);
}

template <int... Options>
QBSong* withoutOptions(QBSong& song, const std::string& title) {
  return removeOptions(song, {Options...}, title);
}

template <int HalfTones>
QBSong* transposedBy(QBSong& song, const std::string& title) {
  return transposed(song, HalfTones, title);
}

// The texts are known to users by heart, the odd ones too; none is to be corrected.

constexpr SongCommand kStandard[] = {
    {"All Standard Filters", "applyChain", "extractChainStandard", "", "", nullptr,
     &QBSongNode::extractChainStandard},
    {"Detect Voicings", "extractVoicings", "extractVoicings", "Voicings extracted.", "",
     voicingsSeenFourTimes},
    {"Simplify Left Hand", "optimizeLeftHand", "toLeftHand", "Song optimized for left hand.",
     "(Lft)", rewrittenBy<QBLeftHandExtractorPello>},
    {"Simplify Right Hand", "optimizeRightHand", "toRightHand", "Song optimized for right hand.",
     "(Rght)", rewrittenBy<QBRightHandExtractor>},
    {"Push Down Strings", "pushDownStrings", "pushDownStrings", "Voices pushed down.", "(Psh)",
     rewrittenBy<QBToneToNextString>},
    {"Clean Chords", "cleanChords", "cleanChords", "Chords cleaned.", "(Cleaned)", cleanChords},
    {"Find Best Fingering", "findBestFingering", "findBestFingering", "Best fingering found.",
     "(Fng)", filteredBy<BestFingering>},
    {"Trim To Playable", "trimToPlayable", "trimToPlayable", "Song trimmed.", "(trimmed)",
     trimToPlayable},
};

constexpr SongCommand kPlectrum[] = {
    {"Extract Lead (1st)", "extractPlectrumFirst", "extractPlectrumLead",
     "Plectrum Lead line extracted.", "(PlctLead)", filteredBy<QBPlectrumExtractor, 0>},
    {"Extract 2nd", "extractPlectrumSecond", "extractPlectrumSecond",
     "Plectrum Second line extracted.", "(Plct2nd)", filteredBy<QBPlectrumExtractor, 1>},
    {"Extract 3rd", "extractPlectrumThird", "extractPlectrumThird",
     "Plectrum Third line extracted.", "(Plct3rd)", filteredBy<QBPlectrumExtractor, 2>},
};

constexpr SongCommand kRhythm[] = {
    {"3/4", "applyRhythmn3_4", "extract3_4", "3/4 Metric added.", "(3_4)", inMetre<3, 4>},
    {"4/4", "applyRhythmn4_4", "extract4_4", "4/4 Metric added", "(4_4)", inMetre<4, 4>},
    {"6/8", "applyRhythmn6_8", "extract6_8", "6/8 Metric added.", "(6_8)", inMetre<6, 8>},
    {"12/8", "applyRhythmn12_18", "extract12_8", "12/8 Metric added.", "(12_8)", inMetre<12, 8>},
};

constexpr SongCommand kVoices[] = {
    {"Leading Three", "extractLeadingThree", "extractThree", "Leading three voices extracted.",
     "(Ldng3)", middleVoices<1>},
    {"Leading Four", "extractLeadingFour", "extractFour", "Leading voices extracted.", "(Ldng4)",
     middleVoices<2>},
    {"Leading Five", "extractLeadingFive", "extractFive", "Leading Five voices extracted.",
     "(Ldng5)", middleVoices<3>},
    {"Leading Six", "extractLeadingSix", "extractSix", "Leading Six voices extracted.", "(Ldng6)",
     middleVoices<4>},
    {"Melody and Brass", "extractLeadingMelodyAndBrass", "extractMelBrass",
     "Melody and Brass extracted.", "(MldBrs)", filteredBy<QBExtractMelodyBrass>},
    {"Melody", "extractLeadingMelody", "extractMelody", "Melody extracted.", "(Mld)",
     filteredBy<QBExtractMelody>},
    {"Brass", "extractLeadingBrass", "extractBrass", "Bass extracted.", "(Brs)",
     filteredBy<QBExtractBrass>},
    {"2nd", "extractSecond", "extractSecondVoice", "Second voice extracted.", "(Vc1)",
     filteredBy<QBExtractVoice, 1>},
    {"3rd", "extractThird", "extractThirdVoice", "Third voice extracted.", "(Vc2)",
     filteredBy<QBExtractVoice, 2>},
    {"4th", "extractFourth", "extractFourthVoice", "Fourth voice extracted.", "(Vc3)",
     filteredBy<QBExtractVoice, 3>},
    {"5th", "extractFifth", "extractFifthVoice", "Fifth voice extracted.", "(Vc4)",
     filteredBy<QBExtractVoice, 4>},
};

constexpr SongCommand kLoudest[] = {
    {"Loudest Two", "extractLoudestTwo", "applyLoudestTwo", "Apply loudest two tones.", "(Lds 2)",
     filteredBy<QBApplyLoudest, 2>},
    {"Loudest Three", "extractLoudestThree", "applyLoudestThree", "Apply loudest three tones.",
     "(Lds 3)", filteredBy<QBApplyLoudest, 3>},
    {"Loudest Four", "extractLoudestFour", "applyLoudestFour", "Apply loudest four tones.",
     "(Lds 4)", filteredBy<QBApplyLoudest, 4>},
    {"Loudest Five", "extractLoudestFive", "applyLoudestFive", "Apply loudest five tones.",
     "(Lds 5)", filteredBy<QBApplyLoudest, 5>},
    {"Loudest Six", "extractLoudestSix", "applyLoudestSix", "Apply loudest six tones.", "(Lds 6)",
     filteredBy<QBApplyLoudest, 6>},
};

constexpr SongCommand kOptions[] = {
    {"Remove Non Harmony Tones", "removeNonHarmonyTones", "removeNonChordTones",
     "Non-Chord Tones removed.", "(-NnChrd)", filteredBy<QBNonChordToneRemover>},
    {"Remove the Seven", "removeSeven", "removeFourthOption", "4th chord option removed.",
     "(-Opts)", withoutOptions<3>},
    {"Remove the Nine", "removeNine", "removeFifthOption", "5th chord option removed.", "(-Opts)",
     withoutOptions<4>},
    {"Remove the Eleven", "removeEleven", "removeSixthOption", "6th chord option removed.",
     "(-Opts)", withoutOptions<5>},
    {"All from Seven", "removeAllFromSeven", "removeOptionsFromFourth",
     "Chord options from 4th removed.", "(-Opts)", withoutOptions<3, 4, 5, 6>},
    {"All from Nine", "removeAllFromNine", "removeOptionsFromFifth",
     "Chord options from 5th removed.", "(-Opts)", withoutOptions<4, 5, 6>},
    {"All from Eleven", "removeAllFromEleven", "removeOptionsFromSixth",
     "Chord options from 6th removed.", "(-Opts)", withoutOptions<5, 6>},
};

constexpr SongCommand kRemovedVoices[] = {
    {"Remove Melody and Brass", "removeMelodyAndBrass", "removeMelBrass",
     "Melody and Brass removed.", "(-MldBrs)", filteredBy<QBRemoveMelodyBrass>},
    {"Remove Melody", "removeMelody", "removeMelody", "Melody removed.", "(-Vc0)",
     filteredBy<QBRemoveVoice, 0>},
    {"Remove Brass", "removeBrass", "removeBrass", "Brass removed.", "(-Brs)",
     filteredBy<QBRemoveBrass>},
    {"Remove 2nd Voice", "removeSecondVoice", "removeSecondVoice", "2nd voice removed.", "(-Vc1)",
     filteredBy<QBRemoveVoice, 1>},
    {"Remove 3nd Voice", "removeThirdVoice", "removeThirdVoice", "3rd voice removed.", "(-Vc2)",
     filteredBy<QBRemoveVoice, 2>},
    {"Remove 4th Voice", "removeFourthVoice", "removeFourthVoice", "4th voice removed.", "(-Vc3)",
     filteredBy<QBRemoveVoice, 3>},
    {"Remove 5th Voice", "removeFifthVoice", "removeFifthVoice", "5th voice removed.", "(-Vc4)",
     filteredBy<QBRemoveVoice, 4>},
};

constexpr SongCommand kUp[] = {
    {"One Half Tone", "transposeUpByOne", "transposeUpBy1", "Song transposed up by one half tone.",
     "(UpBy1)", transposedBy<1>},
    {"A Second (2 Half Tones)", "transposeUpByTwo", "transposeUpBy2",
     "Song transposed up by one tone.", "(UpBy2)", transposedBy<2>},
    {"A small Terz (3 Half Tones)", "transposeUpByThree", "transposeUpBy3",
     "Song transposed up by a minor terz.", "(UpBy3)", transposedBy<3>},
    {"A Terz (4 Half Tones)", "transposeUpByFour", "transposeUpBy4",
     "Song transposed up by a major terz.", "(UpBy4)", transposedBy<4>},
    {"A Quarter (5 Half Tones )", "transposeUpByFive", "transposeUpBy5",
     "Song transposed up by a quart.", "(UpBy5)", transposedBy<5>},
    {"Tritonus (6 Half Tones)", "transposeUpBySix", "transposeUpBy6",
     "Song transposed up by a tritonus.", "(UpBy6)", transposedBy<6>},
    {"A Quinta (7 Half Tones)", "transposeUpBySeven", "transposeUpBy7",
     "Song transposed up by a quinta.", "(UpBy7)", transposedBy<7>},
    {"A Minor Six (8 Half Tones)", "transposeUpByEight", "transposeUpBy8",
     "Song transposed up by a minor six.", "(UpBy8)", transposedBy<8>},
    {"A Six (9 Half Tones)", "transposeUpByNine", "transposeUpBy9", "Song transposed up by a six.",
     "(UpBy9)", transposedBy<9>},
    {"A Minor Seven (10 Half Tones)", "transposeUpByTen", "transposeUpBy10",
     "Song transposed up by a minor sept.", "(UpBy10)", transposedBy<10>},
    {"A Major Seven (11 Half Tones)", "transposeUpByEleven", "transposeUpBy11",
     "Song transposed up by a major sept.", "(UpBy11)", transposedBy<11>},
};

constexpr SongCommand kDown[] = {
    {"One Half Tone", "transposeDownByOne", "transposeDownBy1",
     "Song transposed down by one half tone.", "(DwnBy1)", transposedBy<-1>},
    {"A Second (2 Half Tones)", "transposeDownByTwo", "transposeDownBy2",
     "Song transposed down by one tone.", "(DwnBy2)", transposedBy<-2>},
    {"A Small Terz (3 Half Tones)", "transposeDownByThree", "transposeDownBy3",
     "Song transposed down by a minor terz.", "(DwnBy3)", transposedBy<-3>},
    {"A Terz (4 Half Tones)", "transposeDownByFour", "transposeDownBy4",
     "Song transposed down by a major terz.", "(DwnBy4)", transposedBy<-4>},
    {"A Quarter (5 Half Tones)", "transposeDownByFive", "transposeDownBy5",
     "Song transposed down by a quart.", "(DwnBy5)", transposedBy<-5>},
    {"Tritonus (6 Half Tones)", "transposeDownBySix", "transposeDownBy6",
     "Song transposed down by a tritonus.", "(DwnBy6)", transposedBy<-6>},
    {"A Quinta (7 Half Tones)", "transposeDownBySeven", "transposeDownBy7",
     "Song transposed down by a quinta.", "(DwnBy7)", transposedBy<-7>},
    {"A Small Six (8 Half Tones)", "transposeDownByEight", "transposeDownBy8",
     "Song transposed down by a minor six.", "(DwnBy8)", transposedBy<-8>},
    {"A Six (9 Half Tones)", "transposeDownByNine", "transposeDownBy9",
     "Song transposed down by a six.", "(DwnBy9)", transposedBy<-9>},
    {"A Minor Seven (10 Half Tones)", "transposeDownByTen", "transposeDownBy10",
     "Song transposed down by a minor sept.", "(DwnBy10)", transposedBy<-10>},
    {"A Major Seven (11 Half Tones)", "transposeDownByEleven", "transposeDownBy11",
     "Song transposed down by a major sept.", "(DwnBy11)", transposedBy<-11>},
};

constexpr SongCommand kPlain[] = {
    {"Export To Textfile", "exportAsFile", "exportAsFile", "", "", nullptr,
     &QBSongNode::exportAsFile},
    {"Clone", "cloneSong", "copySong", "", "", nullptr, &QBSongNode::copySong},
    {"Delete", "deleteSong", "deleteSong", "", "", nullptr, &QBSongNode::deleteSong},
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

QBSong* derived(QBSong& song, const SongCommand& command) {
  const std::string title = command.tag.empty() ? "" : nameOf(song).tagged(command.tag);
  return command.make(song, title);
}

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
