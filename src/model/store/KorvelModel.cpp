// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/store/KorvelModel.h"

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

namespace korvel {
namespace {

constexpr platform::StoreFile::Format kFormat{
    .applicationId = 0x4b52564c,  // "KRVL"
    .version = 4,
};

std::vector<platform::EntityDescription> descriptions() {
  std::vector<platform::EntityDescription> all;
  all.push_back(QBAlbum::describe());
  all.push_back(QBSong::describe());
  all.push_back(QBMeasure::describe());
  all.push_back(QBChord::describe());
  all.push_back(QBHold::describe());
  all.push_back(QBTone::describe());
  all.push_back(QBBlock::describe());
  all.push_back(QBSample::describe());
  all.push_back(SongRecording::describe());
  all.push_back(QBSettings::describe());
  all.push_back(QBInstrument::describe());
  all.push_back(QBString::describe());
  all.push_back(QBTuning::describe());
  all.push_back(QBSpectrum::describe());
  all.push_back(QBOvertone::describe());
  all.push_back(QBHarmony::describe());
  all.push_back(QBToneOfHarmony::describe());
  all.push_back(QBLeftHandPattern::describe());
  all.push_back(QBRightHandPattern::describe());
  return all;
}

}  // namespace

const platform::ObjectModel& korvelModel() {
  static const platform::ObjectModel model(descriptions());
  return model;
}

platform::StoreFile storeFile(const std::string& path) { return {path, korvelModel(), kFormat}; }

}  // namespace korvel
