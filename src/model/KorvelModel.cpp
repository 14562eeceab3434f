// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/KorvelModel.h"

#include "model/QBAlbum.h"
#include "model/QBBlock.h"
#include "model/QBChord.h"
#include "model/QBHarmony.h"
#include "model/QBHold.h"
#include "model/QBInstrument.h"
#include "model/QBLeftHandPattern.h"
#include "model/QBMeasure.h"
#include "model/QBOvertone.h"
#include "model/QBRightHandPattern.h"
#include "model/QBSample.h"
#include "model/QBSettings.h"
#include "model/QBSong.h"
#include "model/QBSpectrum.h"
#include "model/QBString.h"
#include "model/QBTone.h"
#include "model/QBToneOfHarmony.h"
#include "model/QBTuning.h"

namespace korvel {
namespace {

constexpr platform::StoreFile::Format kFormat{
    .applicationId = 0x4b52564c,  // "KRVL"
    .version = 1,
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
