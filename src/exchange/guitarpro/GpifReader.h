// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/guitarpro/TabSheet.h"
#include "platform/text/XmlDocument.h"

namespace korvel::exchange::guitarpro {

/// Reads the XML that versions 6 to 8 keep their music in. Bars, voices, beats and notes stand in
/// lists there and name each other by number; the same beat may stand in many bars.
class GpifReader {
 public:
  /// The bytes of "score.gpif". Throws a UserError where they are no XML.
  explicit GpifReader(std::string_view xml);
  GpifReader(const GpifReader&) = delete;
  GpifReader& operator=(const GpifReader&) = delete;

  /// To be called once. Throws a UserError for what makes no sense.
  TabSheet read();

 private:
  using Element = platform::XmlDocument::Element;
  using List = std::unordered_map<int, Element>;
  /// What a staff's properties say beside its strings: names of chords by their number.
  using ChordNames = std::map<int, std::string>;

  void readHead();
  void readTracks();
  void readTrack(const Element& element);
  void readProperties(const Element& properties, Track& head, ChordNames& names);
  void readBars();
  MasterBar masterBarOf(const Element& element);
  void readSigns(const Element& element, BarSigns& signs);
  void readDirections(const Element& directions, BarSigns& signs);
  void readTempos();
  SheetBar sheetBarOf(int bar, const ChordNames& names);
  SheetVoice sheetVoiceOf(int voice, const ChordNames& names);
  void readBeat(const Element& element, const ChordNames& names, SheetVoice& voice);
  double grainsOf(const Element& rhythm) const;
  void leaveOfBeat(const Element& element);
  void readNote(const Element& element, int velocity, SheetBeat& beat);
  void leaveOfNote(const Element& element);
  void leave(const char* what, int count = 1) { (*m_left)[what] += count; }

  List listOf(const char* name) const;
  /// The numbers of an element's text, each of which is worked for.
  std::vector<int> numbersOf(const Element& element);

  platform::XmlDocument m_document;
  Element m_root;
  List m_barList, m_voiceList, m_beatList, m_noteList, m_rhythmList;
  std::vector<ChordNames> m_names;  ///< Of each track of the sheet.
  TabSheet m_sheet;
  LeftCounts* m_left = &m_sheet.head.left;  ///< Of what is read.
  std::size_t m_numbers = 0;                ///< That were followed so far.
};

}  // namespace korvel::exchange::guitarpro
