// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/SongCommands.h"

#include <algorithm>

#include "arrange/hands/QBLeftHandExtractorPello.h"
#include "arrange/hands/QBPlectrumExtractor.h"
#include "arrange/hands/QBRightHandExtractor.h"
#include "arrange/hands/QBToneToNextString.h"
#include "arrange/hands/TonesPushedDown.h"
#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/harmony/QBOptionRemover.h"
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
#include "workflow/arranging/SongFingering.h"
#include "workflow/arranging/VoiceArrangements.h"
#include "workflow/library/QBSongNode.h"

namespace korvel {
namespace {

using platform::phrase;

/// Undone under the title that the menu has.
constexpr platform::Phrase kAsTitled;

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

template <QBOptionRemover::Counted Counted, int... Options>
QBSong* withoutOptionsCounted(QBSong& song, const std::string& title) {
  return filtered(song, title, QBOptionRemover({Options...}, Counted));
}

template <int... Options>
constexpr Making withoutOptions{
    withoutOptionsCounted<QBOptionRemover::Counted::byPlace, Options...>,
    withoutOptionsCounted<QBOptionRemover::Counted::byInterval, Options...>};

template <int HalfTones>
QBSong* transposedByLetter(QBSong& song, const std::string& title) {
  return transposed(song, HalfTones, title);
}

template <int HalfTones>
QBSong* transposedByHand(QBSong& song, const std::string& title) {
  return transposedForHand(song, HalfTones, title);
}

template <int HalfTones>
constexpr Making transposedBy{transposedByLetter<HalfTones>, transposedByHand<HalfTones>};

// The names, tags and sentences are known to users by heart, the odd ones too; none is to be
// corrected.

constexpr platform::Phrase kLaidIntoBars =
    phrase("SongHint", "Laid into bars of this metre, ringing tones as long notes");
constexpr platform::Phrase kLoudestOnly =
    phrase("SongHint",
           "Only so many of the loudest tones of each chord; faint ones may be mere overtones");
constexpr platform::Phrase kHigher = phrase(
    "SongHint",
    "The whole song so much higher, with its new chord names, in grips that a hand can play");
constexpr platform::Phrase kLower =
    phrase("SongHint",
           "The whole song so much lower, with its new chord names, in grips that a hand can play");

constexpr SongCommand kStandard[] = {
    {phrase("SongMenu", "All Standard Filters"),
     kAsTitled,
     phrase("SongHint",
            "Three songs in turn: melody, bass and what rings between them, easier for the left "
            "hand, then for the right one"),
     "applyChain",
     "extractChainStandard",
     {},
     "",
     {},
     &QBSongNode::extractChainStandard},
    {phrase("SongMenu", "Detect Voicings"), kAsTitled,
     phrase("SongHint", "The grips that come at least four times, each once: what to learn first"),
     "extractVoicings", "extractVoicings", phrase("SongLog", "Voicings extracted."), "",
     voicingsSeenFourTimes},
    {phrase("SongMenu", "Simplify Left Hand"), kAsTitled,
     phrase("SongHint",
            "Each chord in a shape that four fingers hold with ease; tones beyond it go"),
     "optimizeLeftHand", "toLeftHand", phrase("SongLog", "Song optimized for left hand."), "(Lft)",
     rewrittenBy<QBLeftHandExtractorPello>},
    {phrase("SongMenu", "Simplify Right Hand"), kAsTitled,
     phrase("SongHint", "Of each chord the strings that the picking hand strikes together"),
     "optimizeRightHand", "toRightHand", phrase("SongLog", "Song optimized for right hand."),
     "(Rght)", rewrittenBy<QBRightHandExtractor>},
    {phrase("SongMenu", "Push Down Strings"),
     kAsTitled,
     phrase("SongHint",
            "The same notes higher up the neck: each on the next lower string, where that is free"),
     "pushDownStrings",
     "pushDownStrings",
     phrase("SongLog", "Voices pushed down."),
     "(Psh)",
     {rewrittenBy<QBToneToNextString>, filteredBy<TonesPushedDown>}},
    {phrase("SongMenu", "Clean Chords"), kAsTitled,
     phrase("SongHint",
            "Strummed chords without tones that only rang along by mistake; melodies would lose "
            "too much"),
     "cleanChords", "cleanChords", phrase("SongLog", "Chords cleaned."), "(Cleaned)", cleanChords},
    {phrase("SongMenu", "Find Best Fingering"),
     kAsTitled,
     phrase("SongHint", "The same notes where a hand reaches them best over the whole song"),
     "findBestFingering",
     "findBestFingering",
     phrase("SongLog", "Best fingering found."),
     "(Fng)",
     {filteredBy<BestFingering>, fingeredForHand}},
    {phrase("SongMenu", "Trim To Playable"),
     kAsTitled,
     phrase("SongHint",
            "What both hands can do: foreign tones, a bass that runs with the melody and crowded "
            "strings go; each stage is kept as a text file"),
     "trimToPlayable",
     "trimToPlayable",
     phrase("SongLog", "Song trimmed."),
     "(trimmed)",
     {trimToPlayable, trimmedForPlayers}},
};

constexpr SongCommand kPlectrum[] = {
    {phrase("SongMenu", "Extract Lead (1st)"), kAsTitled,
     phrase("SongHint",
            "A line for a pick: the highest tone, and the next one where it is on the string "
            "beside it"),
     "extractPlectrumFirst", "extractPlectrumLead",
     phrase("SongLog", "Plectrum Lead line extracted."), "(PlctLead)",
     filteredBy<QBPlectrumExtractor, 0>},
    {phrase("SongMenu", "Extract 2nd"), kAsTitled,
     phrase("SongHint", "A line for a pick below the melody, from the second highest tone"),
     "extractPlectrumSecond", "extractPlectrumSecond",
     phrase("SongLog", "Plectrum Second line extracted."), "(Plct2nd)",
     filteredBy<QBPlectrumExtractor, 1>},
    {phrase("SongMenu", "Extract 3rd"), kAsTitled,
     phrase("SongHint", "A line for a pick in the middle, from the third highest tone"),
     "extractPlectrumThird", "extractPlectrumThird",
     phrase("SongLog", "Plectrum Third line extracted."), "(Plct3rd)",
     filteredBy<QBPlectrumExtractor, 2>},
};

constexpr SongCommand kRhythm[] = {
    {phrase("SongMenu", "3/4"), phrase("UndoAction", "Apply 3/4"), kLaidIntoBars, "applyRhythmn3_4",
     "extract3_4", phrase("SongLog", "3/4 Metric added."), "(3_4)", inMetre<3, 4>},
    {phrase("SongMenu", "4/4"), phrase("UndoAction", "Apply 4/4"), kLaidIntoBars, "applyRhythmn4_4",
     "extract4_4", phrase("SongLog", "4/4 Metric added"), "(4_4)", inMetre<4, 4>},
    {phrase("SongMenu", "6/8"), phrase("UndoAction", "Apply 6/8"), kLaidIntoBars, "applyRhythmn6_8",
     "extract6_8", phrase("SongLog", "6/8 Metric added."), "(6_8)", inMetre<6, 8>},
    {phrase("SongMenu", "12/8"), phrase("UndoAction", "Apply 12/8"), kLaidIntoBars,
     "applyRhythmn12_18", "extract12_8", phrase("SongLog", "12/8 Metric added."), "(12_8)",
     inMetre<12, 8>},
};

constexpr SongCommand kVoices[] = {
    {phrase("SongMenu", "Leading Three"), phrase("UndoAction", "Extract Leading Three"),
     phrase("SongHint", "Melody, bass and the tone between them that rings longest"),
     "extractLeadingThree", "extractThree", phrase("SongLog", "Leading three voices extracted."),
     "(Ldng3)", middleVoices<1>},
    {phrase("SongMenu", "Leading Four"), phrase("UndoAction", "Extract Leading Four"),
     phrase("SongHint", "Melody, bass and the two tones between them that ring longest"),
     "extractLeadingFour", "extractFour", phrase("SongLog", "Leading voices extracted."), "(Ldng4)",
     middleVoices<2>},
    {phrase("SongMenu", "Leading Five"), phrase("UndoAction", "Extract Leading Five"),
     phrase("SongHint", "Melody, bass and the three tones between them that ring longest"),
     "extractLeadingFive", "extractFive", phrase("SongLog", "Leading Five voices extracted."),
     "(Ldng5)", middleVoices<3>},
    {phrase("SongMenu", "Leading Six"), phrase("UndoAction", "Extract Leading Six"),
     phrase("SongHint", "Melody, bass and the four tones between them that ring longest"),
     "extractLeadingSix", "extractSix", phrase("SongLog", "Leading Six voices extracted."),
     "(Ldng6)", middleVoices<4>},
    {phrase("SongMenu", "Melody and Bass"), phrase("UndoAction", "Extract Melody and Bass"),
     phrase("SongHint", "The highest and the lowest tone of each chord"),
     "extractLeadingMelodyAndBrass", "extractMelBrass",
     phrase("SongLog", "Melody and Brass extracted."), "(MldBrs)",
     filteredBy<QBExtractMelodyBrass>},
    {phrase("SongMenu", "Melody"), phrase("UndoAction", "Extract Melody"),
     phrase("SongHint",
            "The highest tone of each chord: the tune alone, to sing or to learn first"),
     "extractLeadingMelody", "extractMelody", phrase("SongLog", "Melody extracted."), "(Mld)",
     filteredBy<QBExtractMelody>},
    {phrase("SongMenu", "Bass"), phrase("UndoAction", "Extract Bass"),
     phrase("SongHint", "The lowest tone of each chord: a bass line"), "extractLeadingBrass",
     "extractBrass", phrase("SongLog", "Bass extracted."), "(Brs)", filteredBy<QBExtractBrass>},
    {phrase("SongMenu", "2nd"), phrase("UndoAction", "Extract 2nd"),
     phrase("SongHint", "The second highest tone of each chord"), "extractSecond",
     "extractSecondVoice", phrase("SongLog", "Second voice extracted."), "(Vc1)",
     filteredBy<QBExtractVoice, 1>},
    {phrase("SongMenu", "3rd"), phrase("UndoAction", "Extract 3rd"),
     phrase("SongHint", "The third highest tone of each chord"), "extractThird",
     "extractThirdVoice", phrase("SongLog", "Third voice extracted."), "(Vc2)",
     filteredBy<QBExtractVoice, 2>},
    {phrase("SongMenu", "4th"), phrase("UndoAction", "Extract 4th"),
     phrase("SongHint", "The fourth highest tone of each chord"), "extractFourth",
     "extractFourthVoice", phrase("SongLog", "Fourth voice extracted."), "(Vc3)",
     filteredBy<QBExtractVoice, 3>},
    {phrase("SongMenu", "5th"), phrase("UndoAction", "Extract 5th"),
     phrase("SongHint", "The fifth highest tone of each chord"), "extractFifth",
     "extractFifthVoice", phrase("SongLog", "Fifth voice extracted."), "(Vc4)",
     filteredBy<QBExtractVoice, 4>},
};

constexpr SongCommand kLoudest[] = {
    {phrase("SongMenu", "Loudest Two"), phrase("UndoAction", "Extract Loudest Two"), kLoudestOnly,
     "extractLoudestTwo", "applyLoudestTwo", phrase("SongLog", "Apply loudest two tones."),
     "(Lds 2)", filteredBy<QBApplyLoudest, 2>},
    {phrase("SongMenu", "Loudest Three"), phrase("UndoAction", "Extract Loudest Three"),
     kLoudestOnly, "extractLoudestThree", "applyLoudestThree",
     phrase("SongLog", "Apply loudest three tones."), "(Lds 3)", filteredBy<QBApplyLoudest, 3>},
    {phrase("SongMenu", "Loudest Four"), phrase("UndoAction", "Extract Loudest Four"), kLoudestOnly,
     "extractLoudestFour", "applyLoudestFour", phrase("SongLog", "Apply loudest four tones."),
     "(Lds 4)", filteredBy<QBApplyLoudest, 4>},
    {phrase("SongMenu", "Loudest Five"), phrase("UndoAction", "Extract Loudest Five"), kLoudestOnly,
     "extractLoudestFive", "applyLoudestFive", phrase("SongLog", "Apply loudest five tones."),
     "(Lds 5)", filteredBy<QBApplyLoudest, 5>},
    {phrase("SongMenu", "Loudest Six"), phrase("UndoAction", "Extract Loudest Six"), kLoudestOnly,
     "extractLoudestSix", "applyLoudestSix", phrase("SongLog", "Apply loudest six tones."),
     "(Lds 6)", filteredBy<QBApplyLoudest, 6>},
};

constexpr std::string_view kOptionsTag = "(-Opts)";

constexpr SongCommand kOptions[] = {
    {phrase("SongMenu", "Remove Non Harmony Tones"), kAsTitled,
     phrase("SongHint", "Each chord without the tones that its name does not have"),
     "removeNonHarmonyTones", "removeNonChordTones", phrase("SongLog", "Non-Chord Tones removed."),
     "(-NnChrd)", filteredBy<QBNonChordToneRemover>},
    {phrase("SongMenu", "Remove the Seven"), kAsTitled,
     phrase("SongHint", "Without sevenths and sixths: G7 becomes G"), "removeSeven",
     "removeFourthOption", phrase("SongLog", "4th chord option removed."), kOptionsTag,
     withoutOptions<3>},
    {phrase("SongMenu", "Remove the Nine"), kAsTitled,
     phrase("SongHint", "Without ninths: Cadd9 becomes C, and C9 becomes C7"), "removeNine",
     "removeFifthOption", phrase("SongLog", "5th chord option removed."), kOptionsTag,
     withoutOptions<4>},
    {phrase("SongMenu", "Remove the Eleven"), kAsTitled,
     phrase("SongHint", "Without elevenths: C11 becomes C9"), "removeEleven", "removeSixthOption",
     phrase("SongLog", "6th chord option removed."), kOptionsTag, withoutOptions<5>},
    {phrase("SongMenu", "All from Seven"), phrase("UndoAction", "Remove All from Seven"),
     phrase("SongHint", "Plain triads: without sevenths, sixths, ninths and all above them"),
     "removeAllFromSeven", "removeOptionsFromFourth",
     phrase("SongLog", "Chord options from 4th removed."), kOptionsTag, withoutOptions<3, 4, 5, 6>},
    {phrase("SongMenu", "All from Nine"), phrase("UndoAction", "Remove All from Nine"),
     phrase("SongHint", "Sevenths stay, ninths and all above them go: C9 becomes C7"),
     "removeAllFromNine", "removeOptionsFromFifth",
     phrase("SongLog", "Chord options from 5th removed."), kOptionsTag, withoutOptions<4, 5, 6>},
    {phrase("SongMenu", "All from Eleven"), phrase("UndoAction", "Remove All from Eleven"),
     phrase("SongHint", "Ninths stay, elevenths and thirteenths go: C13 becomes C9"),
     "removeAllFromEleven", "removeOptionsFromSixth",
     phrase("SongLog", "Chord options from 6th removed."), kOptionsTag, withoutOptions<5, 6>},
};

constexpr SongCommand kRemovedVoices[] = {
    {phrase("SongMenu", "Remove Melody and Bass"), kAsTitled,
     phrase("SongHint", "What lies between the highest and the lowest tone of each chord"),
     "removeMelodyAndBrass", "removeMelBrass", phrase("SongLog", "Melody and Brass removed."),
     "(-MldBrs)", filteredBy<QBRemoveMelodyBrass>},
    {phrase("SongMenu", "Remove Melody"), kAsTitled,
     phrase("SongHint", "Each chord without its highest tone: an accompaniment to sing to"),
     "removeMelody", "removeMelody", phrase("SongLog", "Melody removed."), "(-Vc0)",
     filteredBy<QBRemoveVoice, 0>},
    {phrase("SongMenu", "Remove Bass"), kAsTitled,
     phrase("SongHint", "Each chord without its lowest tone, for playing with a bass"),
     "removeBrass", "removeBrass", phrase("SongLog", "Brass removed."), "(-Brs)",
     filteredBy<QBRemoveBrass>},
    {phrase("SongMenu", "Remove 2nd Voice"), kAsTitled,
     phrase("SongHint", "Each chord without its second highest tone"), "removeSecondVoice",
     "removeSecondVoice", phrase("SongLog", "2nd voice removed."), "(-Vc1)",
     filteredBy<QBRemoveVoice, 1>},
    {phrase("SongMenu", "Remove 3rd Voice"), kAsTitled,
     phrase("SongHint", "Each chord without its third highest tone"), "removeThirdVoice",
     "removeThirdVoice", phrase("SongLog", "3rd voice removed."), "(-Vc2)",
     filteredBy<QBRemoveVoice, 2>},
    {phrase("SongMenu", "Remove 4th Voice"), kAsTitled,
     phrase("SongHint", "Each chord without its fourth highest tone"), "removeFourthVoice",
     "removeFourthVoice", phrase("SongLog", "4th voice removed."), "(-Vc3)",
     filteredBy<QBRemoveVoice, 3>},
    {phrase("SongMenu", "Remove 5th Voice"), kAsTitled,
     phrase("SongHint", "Each chord without its fifth highest tone"), "removeFifthVoice",
     "removeFifthVoice", phrase("SongLog", "5th voice removed."), "(-Vc4)",
     filteredBy<QBRemoveVoice, 4>},
};

constexpr SongCommand kUp[] = {
    {phrase("SongMenu", "One Half Tone"), phrase("UndoAction", "Transpose Up By One Half Tone"),
     kHigher, "transposeUpByOne", "transposeUpBy1",
     phrase("SongLog", "Song transposed up by one half tone."), "(UpBy1)", transposedBy<1>},
    {phrase("SongMenu", "A Second (2 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Second (2 Half Tones)"), kHigher, "transposeUpByTwo",
     "transposeUpBy2", phrase("SongLog", "Song transposed up by one tone."), "(UpBy2)",
     transposedBy<2>},
    {phrase("SongMenu", "A Minor Third (3 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Minor Third (3 Half Tones)"), kHigher,
     "transposeUpByThree", "transposeUpBy3",
     phrase("SongLog", "Song transposed up by a minor terz."), "(UpBy3)", transposedBy<3>},
    {phrase("SongMenu", "A Major Third (4 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Major Third (4 Half Tones)"), kHigher,
     "transposeUpByFour", "transposeUpBy4",
     phrase("SongLog", "Song transposed up by a major terz."), "(UpBy4)", transposedBy<4>},
    {phrase("SongMenu", "A Fourth (5 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Fourth (5 Half Tones)"), kHigher, "transposeUpByFive",
     "transposeUpBy5", phrase("SongLog", "Song transposed up by a quart."), "(UpBy5)",
     transposedBy<5>},
    {phrase("SongMenu", "A Tritone (6 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Tritone (6 Half Tones)"), kHigher, "transposeUpBySix",
     "transposeUpBy6", phrase("SongLog", "Song transposed up by a tritonus."), "(UpBy6)",
     transposedBy<6>},
    {phrase("SongMenu", "A Fifth (7 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Fifth (7 Half Tones)"), kHigher, "transposeUpBySeven",
     "transposeUpBy7", phrase("SongLog", "Song transposed up by a quinta."), "(UpBy7)",
     transposedBy<7>},
    {phrase("SongMenu", "A Minor Sixth (8 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Minor Sixth (8 Half Tones)"), kHigher,
     "transposeUpByEight", "transposeUpBy8",
     phrase("SongLog", "Song transposed up by a minor six."), "(UpBy8)", transposedBy<8>},
    {phrase("SongMenu", "A Major Sixth (9 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Major Sixth (9 Half Tones)"), kHigher,
     "transposeUpByNine", "transposeUpBy9", phrase("SongLog", "Song transposed up by a six."),
     "(UpBy9)", transposedBy<9>},
    {phrase("SongMenu", "A Minor Seventh (10 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Minor Seventh (10 Half Tones)"), kHigher,
     "transposeUpByTen", "transposeUpBy10",
     phrase("SongLog", "Song transposed up by a minor sept."), "(UpBy10)", transposedBy<10>},
    {phrase("SongMenu", "A Major Seventh (11 Half Tones)"),
     phrase("UndoAction", "Transpose Up By A Major Seventh (11 Half Tones)"), kHigher,
     "transposeUpByEleven", "transposeUpBy11",
     phrase("SongLog", "Song transposed up by a major sept."), "(UpBy11)", transposedBy<11>},
};

constexpr SongCommand kDown[] = {
    {phrase("SongMenu", "One Half Tone"), phrase("UndoAction", "Transpose Down By One Half Tone"),
     kLower, "transposeDownByOne", "transposeDownBy1",
     phrase("SongLog", "Song transposed down by one half tone."), "(DwnBy1)", transposedBy<-1>},
    {phrase("SongMenu", "A Second (2 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Second (2 Half Tones)"), kLower,
     "transposeDownByTwo", "transposeDownBy2",
     phrase("SongLog", "Song transposed down by one tone."), "(DwnBy2)", transposedBy<-2>},
    {phrase("SongMenu", "A Minor Third (3 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Minor Third (3 Half Tones)"), kLower,
     "transposeDownByThree", "transposeDownBy3",
     phrase("SongLog", "Song transposed down by a minor terz."), "(DwnBy3)", transposedBy<-3>},
    {phrase("SongMenu", "A Major Third (4 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Major Third (4 Half Tones)"), kLower,
     "transposeDownByFour", "transposeDownBy4",
     phrase("SongLog", "Song transposed down by a major terz."), "(DwnBy4)", transposedBy<-4>},
    {phrase("SongMenu", "A Fourth (5 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Fourth (5 Half Tones)"), kLower,
     "transposeDownByFive", "transposeDownBy5",
     phrase("SongLog", "Song transposed down by a quart."), "(DwnBy5)", transposedBy<-5>},
    {phrase("SongMenu", "A Tritone (6 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Tritone (6 Half Tones)"), kLower,
     "transposeDownBySix", "transposeDownBy6",
     phrase("SongLog", "Song transposed down by a tritonus."), "(DwnBy6)", transposedBy<-6>},
    {phrase("SongMenu", "A Fifth (7 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Fifth (7 Half Tones)"), kLower,
     "transposeDownBySeven", "transposeDownBy7",
     phrase("SongLog", "Song transposed down by a quinta."), "(DwnBy7)", transposedBy<-7>},
    {phrase("SongMenu", "A Minor Sixth (8 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Minor Sixth (8 Half Tones)"), kLower,
     "transposeDownByEight", "transposeDownBy8",
     phrase("SongLog", "Song transposed down by a minor six."), "(DwnBy8)", transposedBy<-8>},
    {phrase("SongMenu", "A Major Sixth (9 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Major Sixth (9 Half Tones)"), kLower,
     "transposeDownByNine", "transposeDownBy9", phrase("SongLog", "Song transposed down by a six."),
     "(DwnBy9)", transposedBy<-9>},
    {phrase("SongMenu", "A Minor Seventh (10 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Minor Seventh (10 Half Tones)"), kLower,
     "transposeDownByTen", "transposeDownBy10",
     phrase("SongLog", "Song transposed down by a minor sept."), "(DwnBy10)", transposedBy<-10>},
    {phrase("SongMenu", "A Major Seventh (11 Half Tones)"),
     phrase("UndoAction", "Transpose Down By A Major Seventh (11 Half Tones)"), kLower,
     "transposeDownByEleven", "transposeDownBy11",
     phrase("SongLog", "Song transposed down by a major sept."), "(DwnBy11)", transposedBy<-11>},
};

constexpr SongCommand kPlain[] = {
    {phrase("SongMenu", "Export To Textfile"),
     kAsTitled,
     phrase("SongHint", "The tablature as plain text, in a file of your choice"),
     "exportAsFile",
     "exportAsFile",
     {},
     "",
     {},
     &QBSongNode::exportAsFile},
    {phrase("SongMenu", "Clone"),
     phrase("UndoAction", "Clone"),
     phrase("SongHint", "A copy to change and try things on"),
     "cloneSong",
     "copySong",
     {},
     "",
     {},
     &QBSongNode::copySong},
    {phrase("SongMenu", "Delete"),
     phrase("UndoAction", "Delete"),
     phrase("SongHint", "Takes the song out of its album; Undo in the menu Edit brings it back"),
     "deleteSong",
     "deleteSong",
     {},
     "",
     {},
     &QBSongNode::deleteSong},
};

constexpr SongMenuSection kMenu[] = {
    {phrase("SongMenu", "Apply Standard Filters"), kStandard},
    {phrase("SongMenu", "Apply Plectrum Filters"), kPlectrum},
    {phrase("SongMenu", "Apply Rhythm Filters"), kRhythm},
    {},
    {phrase("SongMenu", "Extract Voices"), kVoices},
    {phrase("SongMenu", "Extract Loudest Voices"), kLoudest},
    {},
    {phrase("SongMenu", "Remove Options"), kOptions},
    {phrase("SongMenu", "Remove Voices"), kRemovedVoices},
    {},
    {phrase("SongMenu", "Transpose Up By"), kUp},
    {phrase("SongMenu", "Transpose Down By"), kDown},
    {},
    {{}, kPlain},
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

platform::Phrase undoTitle(const SongCommand& command) {
  return command.undo.empty() ? command.title : command.undo;
}

const SongCommand* findSongCommand(std::string_view command) {
  return find(&SongCommand::command, command);
}

const SongCommand* findSongAction(std::string_view action) {
  return find(&SongCommand::action, action);
}

}  // namespace korvel
