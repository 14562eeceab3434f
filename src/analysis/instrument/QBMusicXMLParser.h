// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/instrument/QBMusicXMLScanner.h"

namespace korvel {

class QBInstrument;
class QBSpectrum;
class QBTabMgr;

/// Reads an instrument definition file into the store. Every element is required, in this order:
///
///     <Instrument>
///       <Name>Guitar</Name> <DetailLevel>0.500000</DetailLevel>
///       <Spectrum>                                     any number
///         <String> <Order>0</Order> </String>
///         <Overtone>                                   any number
///           <OverString>2</OverString> <OverFret>2</OverFret> <OverNote>4</OverNote>
///           <OverNmbOfHits>44</OverNmbOfHits> <Amp>686473.5</Amp> <Offset>12</Offset>
///         </Overtone>
///       </Spectrum>
///     </Instrument>
///
/// A text that is no number counts as 0.
class QBMusicXMLParser {
 public:
  /// Into that store.
  QBMusicXMLParser(QBTabMgr& db, const std::filesystem::path& file);

  /// Creates the instrument in the selected tuning, active and editable; who adds one to others
  /// deselects those first. A bad header creates nothing. A bad spectrum or overtone ends the
  /// reading, and what was read before it stays. A tuning with fewer than six strings:
  /// std::out_of_range.
  ///
  /// Answers none, even if all went well; look in the store.
  QBInstrument* parse();

  // Each reads one element, and leaves what is not that element to the next one that is asked for.
  /// Reads the overtones into the instrument's spectrum, and marks it as calibrated when it ends
  /// where it should.
  bool isSpectrum(QBInstrument& instrument);
  /// The number of a string that the instrument has a spectrum for.
  std::optional<int> isString(QBInstrument& instrument);
  bool isOvertone(QBSpectrum& spectrum);

 private:
  using Tag = QBMusicXMLScanner::Tag;
  using Reading = std::optional<Tag> (QBMusicXMLScanner::*)();

  std::optional<Tag> expect(Reading next, std::string_view title);
  std::optional<std::string> openTag(std::string_view title);
  bool closeTag(std::string_view title);
  std::optional<std::string> element(std::string_view title);

  QBTabMgr& m_db;
  QBMusicXMLScanner scanner;
  /// The tag that was read last and was not the expected one.
  std::optional<Tag> readAhead;
};

}  // namespace korvel
