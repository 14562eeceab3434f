// SPDX-License-Identifier: GPL-3.0-or-later
#include <stdexcept>

#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/QBBlock.h"
#include "model/recorded/QBSample.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {
namespace {

struct PatternText {
  const char* text;
  int order;
};

// One pattern stands twice; choosing among equals takes the first, so that it does no harm.
constexpr PatternText kRightHand[] = {
    {"xxx-x-", 3}, {"-xxxx-", 2}, {"xxx--x", 3}, {"-xxx-x", 3}, {"--xxxx", 2}, {"xx--x-", 4},
    {"-xx-x-", 4}, {"--xxx-", 2}, {"-x-xx-", 1}, {"x--xx-", 1}, {"xx--x-", 4}, {"-xx--x", 4},
    {"--xx-x", 4}, {"---xxx", 2}, {"x---xx", 1}, {"-x--xx", 1}, {"--x-xx", 1}, {"xx-x--", 4},
    {"xxx---", 2}, {"x-xx--", 1}, {"x-xxx-", 0}, {"x--xxx", 0}, {"-x-xxx", 0}, {"-x-x-x", 3},
    {"x-x-x-", 3}, {"xx-xx-", 0}, {"-xx-xx", 0}};

constexpr PatternText kLeftHand[] = {{"012200", 0}, {"000220", 0}, {"12300x", 0}, {"022200", 0},
                                     {"001220", 0}, {"32300x", 0}, {"010233", 0}, {"010230", 1},
                                     {"300023", 0}, {"330023", 1}};

void requireSixStrings(std::string_view text) {
  if (text.size() != kStrings)
    throw std::invalid_argument("a hand pattern has six characters: " + std::string(text));
}

}  // namespace

platform::ManagedObject* QBTabMgr::createInstance(std::string_view entityName) {
  return m_context->insert(entityName);
}

template <class T>
T* QBTabMgr::create(std::string_view entityName) {
  return static_cast<T*>(createInstance(entityName));
}

QBAlbum* QBTabMgr::createAlbum(const std::string& name, bool locked) {
  auto* album = create<QBAlbum>("QBAlbum");
  album->setName(name);
  album->setLocked(locked);
  m_albums.emplace_back(album);
  return album;
}

QBSong* QBTabMgr::createSong(const std::string& title, QBTuning* tuning, QBInstrument* instrument,
                             QBAlbum* album) {
  auto* song = create<QBSong>("QBSong");
  song->setTitle(title);
  song->setTuning(tuning);
  if (instrument) song->setInstrument(instrument->name());
  song->setTempoRate(1.0F);
  song->setAlbum(album);
  return song;
}

SongRecording* QBTabMgr::createRecording(const std::string& path) {
  auto* recording = create<SongRecording>("SongRecording");
  recording->setPath(path);
  return recording;
}

QBMeasure* QBTabMgr::createMeasure(QBSong* song, int beat, int beattype) {
  auto* measure = create<QBMeasure>("QBMeasure");
  measure->setPosition(song->nextMeasurePosition());
  measure->setSong(song);
  measure->setBeat(beat);
  measure->setBeattype(beattype);
  return measure;
}

QBChord* QBTabMgr::createChord(QBSong* song, std::shared_ptr<QBFFT> fft, std::int64_t timestamp) {
  auto* chord = create<QBChord>("QBChord");
  chord->setPosition(song->nextChordPosition());
  chord->setSong(song);
  chord->setM_fft(std::move(fft));
  chord->setHold(createHold());
  chord->setDuration(1);
  chord->setTimestamp(timestamp);
  return chord;
}

QBHold* QBTabMgr::createHold() { return create<QBHold>("QBHold"); }

QBTone* QBTabMgr::createTone(QBHold* hold, int string, int fret, int note, double amp) {
  auto* tone = create<QBTone>("QBTone");
  tone->setHold(hold);
  tone->setString(string);
  tone->setFret(fret);
  tone->setNote(note);
  tone->setAmp(amp);
  tone->setDuration(QBTone::kUntoldDuration);
  tone->setActive(true);
  return tone;
}

QBBlock* QBTabMgr::createBlock(QBChord* chord) {
  auto* block = create<QBBlock>("QBBlock");
  block->setPosition(1);
  block->setChord(chord);
  return block;
}

QBSample* QBTabMgr::createSample(QBBlock* block, std::int16_t value) {
  auto* sample = create<QBSample>("QBSample");
  sample->setPosition(block->nextPosition());
  sample->setValue(value);
  sample->setBlock(block);
  return sample;
}

QBSettings* QBTabMgr::createSettings(const std::string& workDir) {
  auto* created = create<QBSettings>("QBSettings");
  created->setWorkDir(workDir);
  return created;
}

QBTuning* QBTabMgr::createTuning(const std::string& descr, int order) {
  auto* tuning = create<QBTuning>("QBTuning");
  tuning->setOrder(order);
  tuning->setDescr(descr);
  m_tunings.emplace_back(tuning);
  return tuning;
}

QBString* QBTabMgr::createString(QBTuning* tuning, int baseTone, int order, float frequency) {
  auto* string = create<QBString>("QBString");
  string->setTuning(tuning);
  string->setBaseTone(baseTone);
  string->setOrder(order);
  string->setFrequency(static_cast<double>(frequency));
  return string;
}

QBInstrument* QBTabMgr::createInstrument(QBTuning* tuning, const std::string& name, bool active,
                                         bool editable, float detaillevel, float volume) {
  auto* instrument = create<QBInstrument>("QBInstrument");
  instrument->setName(name);
  instrument->setActive(active);
  instrument->setEditable(editable);
  instrument->setDetaillevel(detaillevel);
  instrument->setVolume(volume);
  instrument->setTuning(tuning);
  for (int i = 0; i < kStrings; ++i)
    createSpectrum(instrument, tuning ? tuning->findStringByPosition(i) : nullptr);
  m_instruments.emplace_back(instrument);
  return instrument;
}

QBSpectrum* QBTabMgr::createSpectrum(QBInstrument* instrument, QBString* string) {
  auto* spectrum = create<QBSpectrum>("QBSpectrum");
  spectrum->setInstrument(instrument);
  spectrum->setString(string);
  return spectrum;
}

QBOvertone* QBTabMgr::createOvertone(QBSpectrum* spectrum, int string, int fret, int note,
                                     int offset, double frequency, double amp) {
  auto* overtone = create<QBOvertone>("QBOvertone");
  overtone->setSpectrum(spectrum);
  overtone->setString(string);
  overtone->setFret(fret);
  overtone->setNote(note);
  overtone->setFrequency(frequency);
  overtone->setAmp(amp);
  overtone->setOffset(offset);
  return overtone;
}

QBHarmony* QBTabMgr::createHarmony(const std::string& type, int order) {
  auto* harmony = create<QBHarmony>("QBHarmony");
  harmony->setType(type);
  harmony->setOrder(order);
  return harmony;
}

QBToneOfHarmony* QBTabMgr::createToneOfHarmony(QBHarmony* harmony, int order, int step) {
  auto* tone = create<QBToneOfHarmony>("QBToneOfHarmony");
  tone->setHarmony(harmony);
  tone->setOrder(order);
  tone->setStep(step);
  return tone;
}

QBRightHandPattern* QBTabMgr::createPattern(int order) {
  auto* pattern = create<QBRightHandPattern>("QBRightHandPattern");
  pattern->setOrder(order);
  return pattern;
}

QBString* QBTabMgr::createPatternString(QBRightHandPattern* pattern, int order) {
  auto* row = create<QBString>("QBString");
  row->setRighthandpattern(pattern);
  row->setOrder(order);
  return row;
}

QBLeftHandPattern* QBTabMgr::createLeftPattern(int order) {
  auto* pattern = create<QBLeftHandPattern>("QBLeftHandPattern");
  pattern->setOrder(order);
  return pattern;
}

QBString* QBTabMgr::createLeftPatternString(QBLeftHandPattern* pattern, int order, int baseTone) {
  auto* row = create<QBString>("QBString");
  row->setLefthandpattern(pattern);
  row->setOrder(order);
  row->setBaseTone(baseTone);
  return row;
}

QBRightHandPattern* QBTabMgr::addPattern(std::string_view text, int order) {
  requireSixStrings(text);
  QBRightHandPattern* pattern = createPattern(order);
  for (int string = 0; string < kStrings; ++string)
    if (text[static_cast<std::size_t>(kStrings - 1 - string)] == 'x')
      createPatternString(pattern, string);
  return pattern;
}

QBLeftHandPattern* QBTabMgr::addLeftPattern(std::string_view text, int order) {
  requireSixStrings(text);
  QBLeftHandPattern* pattern = createLeftPattern(order);
  for (int string = 0; string < kStrings; ++string) {
    const char finger = text[static_cast<std::size_t>(kStrings - 1 - string)];
    if (finger != 'x') createLeftPatternString(pattern, string, finger - '0');
  }
  return pattern;
}

void QBTabMgr::initRightHandPatterns() {
  for (const PatternText& pattern : kRightHand) addPattern(pattern.text, pattern.order);
}

void QBTabMgr::initLeftHandPatterns() {
  for (const PatternText& pattern : kLeftHand) addLeftPattern(pattern.text, pattern.order);
}

}  // namespace korvel
