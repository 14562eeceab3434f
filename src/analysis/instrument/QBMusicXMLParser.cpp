// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/QBMusicXMLParser.h"

#include <array>
#include <utility>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/Numerals.h"

namespace korvel {
namespace {

constexpr float kVolumeOfFiles = 1.0F;

}  // namespace

QBMusicXMLParser::QBMusicXMLParser(QBTabMgr& db, const std::filesystem::path& file)
    : m_db(db), scanner(file) {}

QBInstrument* QBMusicXMLParser::parse() {
  if (!openTag("Instrument")) return nullptr;
  const auto name = element("Name");
  if (!name) return nullptr;
  const auto detailLevel = element("DetailLevel");
  if (!detailLevel) return nullptr;
  QBInstrument* instrument = m_db.createInstrument(
      m_db.selectedTuning(), *name, true, true, platform::floatValue(*detailLevel), kVolumeOfFiles);
  while (isSpectrum(*instrument)) {
  }
  // No title has angle brackets, so this never matches; the answer is none by design.
  return closeTag("</Instrument>") ? instrument : nullptr;
}

bool QBMusicXMLParser::isSpectrum(QBInstrument& instrument) {
  if (!openTag("Spectrum")) return false;
  const auto position = isString(instrument);
  if (!position) return false;
  QBSpectrum* spectrum = instrument.findSpectrumByString(*position);
  while (isOvertone(*spectrum)) {
  }
  if (!closeTag("/Spectrum")) return false;
  spectrum->defineAsCalibrated();
  return true;
}

std::optional<int> QBMusicXMLParser::isString(QBInstrument& instrument) {
  if (!openTag("String")) return std::nullopt;
  const auto order = element("Order");
  if (!order || !closeTag("/String")) return std::nullopt;
  const int position = platform::intValue(*order);
  const auto count = static_cast<int>(instrument.readAllSpectrums().size());
  return position >= 0 && position < count ? std::optional(position) : std::nullopt;
}

bool QBMusicXMLParser::isOvertone(QBSpectrum& spectrum) {
  static constexpr std::array kElements = {"OverString",    "OverFret", "OverNote",
                                           "OverNmbOfHits", "Amp",      "Offset"};
  if (!openTag("Overtone")) return false;
  std::array<std::string, kElements.size()> texts;
  for (std::size_t i = 0; i < kElements.size(); ++i) {
    auto text = element(kElements[i]);
    if (!text) return false;
    texts[i] = std::move(*text);
  }
  const auto& [string, fret, note, hits, amp, offset] = texts;
  using platform::intValue;
  QBOvertone* overtone =
      m_db.createOvertone(&spectrum, intValue(string), intValue(fret), intValue(note),
                          intValue(offset), 0.0, platform::doubleValue(amp));
  overtone->setHits(intValue(hits));
  return closeTag("/Overtone");
}

// ---- tags

std::optional<QBMusicXMLScanner::Tag> QBMusicXMLParser::expect(Reading next,
                                                               std::string_view title) {
  auto tag = std::exchange(readAhead, std::nullopt);
  if (!tag) tag = (scanner.*next)();
  if (tag && tag->title == title) return tag;
  readAhead = std::move(tag);
  return std::nullopt;
}

std::optional<std::string> QBMusicXMLParser::openTag(std::string_view title) {
  auto tag = expect(&QBMusicXMLScanner::nextOpenTag, title);
  return tag ? std::optional(std::move(tag->value)) : std::nullopt;
}

bool QBMusicXMLParser::closeTag(std::string_view title) {
  return expect(&QBMusicXMLScanner::nextCloseTag, title).has_value();
}

/// The text of an element that holds nothing else.
std::optional<std::string> QBMusicXMLParser::element(std::string_view title) {
  auto value = openTag(title);
  if (value && !closeTag('/' + std::string(title))) value.reset();
  return value;
}

}  // namespace korvel
