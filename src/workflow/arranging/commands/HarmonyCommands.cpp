// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/commands/HarmonyCommands.h"

#include "arrange/harmony/QBNonChordToneRemover.h"
#include "arrange/harmony/QBOptionRemover.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/HarmonyArrangements.h"
#include "workflow/arranging/SongFingering.h"

namespace korvel {
namespace {

using platform::phrase;

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

constexpr platform::Phrase kHigher = phrase(
    "SongHint",
    "The whole song so much higher, with its new chord names, in grips that a hand can play");
constexpr platform::Phrase kLower =
    phrase("SongHint",
           "The whole song so much lower, with its new chord names, in grips that a hand can play");

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

}  // namespace

std::span<const SongCommand> removedOptions() { return kOptions; }
std::span<const SongCommand> transposedUp() { return kUp; }
std::span<const SongCommand> transposedDown() { return kDown; }

}  // namespace korvel
