// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/commands/VoiceCommands.h"

#include "arrange/voices/QBApplyLoudest.h"
#include "arrange/voices/QBExtractBrass.h"
#include "arrange/voices/QBExtractMelody.h"
#include "arrange/voices/QBExtractMelodyBrass.h"
#include "arrange/voices/QBExtractVoice.h"
#include "arrange/voices/QBRemoveBrass.h"
#include "arrange/voices/QBRemoveMelodyBrass.h"
#include "arrange/voices/QBRemoveVoice.h"
#include "workflow/arranging/ArrangedSong.h"
#include "workflow/arranging/VoiceArrangements.h"

namespace korvel {
namespace {

using platform::phrase;

template <int Count>
QBSong* middleVoices(QBSong& song, const std::string& title) {
  return extractMiddleVoices(song, Count, title);
}

constexpr platform::Phrase kLoudestOnly =
    phrase("SongHint",
           "Only so many of the loudest tones of each chord; faint ones may be mere overtones");

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

}  // namespace

std::span<const SongCommand> extractedVoices() { return kVoices; }
std::span<const SongCommand> loudestVoices() { return kLoudest; }
std::span<const SongCommand> removedVoices() { return kRemovedVoices; }

}  // namespace korvel
