// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ChordProReader.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "music/Pitch.h"
#include "platform/text/Blanks.h"
#include "platform/text/ForeignText.h"
#include "tab/chordpro/GridReader.h"
#include "tab/chordpro/ReadBars.h"
#include "tab/chordpro/ReadFacts.h"
#include "tab/chordpro/ReadNames.h"
#include "tab/chordpro/ReadWords.h"
#include "tab/chordpro/SungReader.h"

namespace korvel {
namespace {

using platform::trimmed;

/// Of the metres that can be told.
constexpr int kLongestBeattype = 16;

struct Directive {
  std::string name;  ///< In lower case letters.
  std::string_view value;
};

/// Of what stands in the braces.
Directive directiveOf(std::string_view text) {
  const auto end = text.find_first_of(": \t");
  Directive directive{std::string(text.substr(0, end)), {}};
  std::ranges::transform(directive.name, directive.name.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  if (end == std::string_view::npos) return directive;
  directive.value = trimmed(text.substr(end + 1));
  if (directive.value.starts_with(':')) directive.value = trimmed(directive.value.substr(1));
  return directive;
}

/// "verse" for "start_of_verse" and "sov"; "" for all else.
std::string sectionOf(const std::string& name, const std::string& longWay,
                      const std::string& shortWay) {
  if (name.starts_with(longWay)) return name.substr(longWay.size());
  if (name.size() != shortWay.size() + 1 || !name.starts_with(shortWay)) return {};
  for (const char* each : {"verse", "chorus", "bridge", "tab", "grid"})
    if (each[0] == name.back()) return each;
  return {};
}

/// Names and shapes are those of what is played behind the capo.
void soundAsPlayed(PageSource& song) {
  if (song.key)
    song.key =
        pitchClass(*song.key + song.capo) + (*song.key >= kNotesPerOctave ? kNotesPerOctave : 0);
  for (PageSource::Chord& chord : song.chords) {
    std::optional<ChordShape> shape = chord.shape;
    chord = movedChord(chord, song.capo);
    if (shape)
      for (int& fret : *shape)
        if (fret != kNotPlayed) fret += song.capo;
    if (shape && isOnNeck(*shape)) chord.shape = shape;
  }
}

/// Hands each line to whom it is for, and keeps the sections.
class Reader {
 public:
  explicit Reader(const QBTabMgr& db) : m_names(db) {}

  void line(std::string_view text) {
    const std::string_view content = trimmed(text);
    if (content.starts_with('#') || m_bars.isTooLong()) return;
    if (content.starts_with('{'))
      directive(directiveOf(content.substr(1, content.find('}') - 1)));
    else if (content.empty() || !m_skipped.empty())
      return;
    else if (m_inGrid)
      m_grid.line(content);
    else
      m_sung.line(content);
  }

  ReadChordPro result() {
    endSection();
    ReadChordPro read;
    read.song = m_facts.song();
    if (m_bars.size() > 0) {
      m_bars.layInto(read.song);
      soundAsPlayed(read.song);
    }
    read.unknown = m_names.unknown();
    return read;
  }

 private:
  void directive(const Directive& told) {
    if (told.name == "time")
      tellTime(told.value);
    else if (told.name == "x_korvel_beats")
      m_sung.setLengths(told.value);
    else if (told.name == "x_korvel_cells")
      m_grid.setCellsOfBeat(
          static_cast<int>(std::clamp(numberIn(told.value).value_or(0), 0.0, 12.0)));
    else if (told.name == "chorus")
      repeatChorus();
    else
      m_facts.tell(told.name, told.value);
    section(told.name);
  }

  void tellTime(std::string_view value) {
    const auto slash = value.find('/');
    const auto beat = numberIn(value);
    if (!beat || slash == std::string_view::npos || *beat < 1 || *beat > 24) return;
    const int beattype = wholeIn(value.substr(slash + 1), kLongestBeattype).value_or(0);
    if (beattype != 2 && beattype != 4 && beattype != 8 && beattype != 16) return;
    m_bars.setMetre(static_cast<int>(*beat), beattype);
  }

  void section(const std::string& name) {
    static const std::set<std::string> kNoSongs{"tab", "abc", "ly", "svg", "textblock"};
    const std::string begun = sectionOf(name, "start_of_", "so");
    const std::string ended = sectionOf(name, "end_of_", "eo");
    if (begun.empty() && ended.empty()) return;
    endSection();
    if (kNoSongs.contains(begun)) m_skipped = begun;
    if (ended == m_skipped) m_skipped.clear();
    m_inGrid = begun == "grid";
    if (begun == "chorus") m_chorusFrom = m_bars.size();
    if (ended == "chorus") m_chorus = {m_chorusFrom, m_bars.size()};
    m_grid.begin();
  }

  void repeatChorus() {
    endSection();
    m_bars.repeat(m_chorus.first, m_chorus.second);
  }

  void endSection() {
    m_bars.end();
    m_inGrid = false;
    m_sung.setLengths({});
    m_grid.setCellsOfBeat(0);
  }

  ReadNames m_names;
  ReadBars m_bars;
  ReadFacts m_facts{m_names};
  GridReader m_grid{m_names, m_bars};
  SungReader m_sung{m_names, m_bars};
  bool m_inGrid = false;
  std::string m_skipped;  ///< The section whose lines are no chords.
  std::size_t m_chorusFrom = 0;
  std::pair<std::size_t, std::size_t> m_chorus{};
};

}  // namespace

ReadChordPro readChordPro(const QBTabMgr& db, std::string_view file) {
  Reader reader(db);
  const std::string whole = platform::foreignText(file);
  std::string_view text(whole);
  while (!text.empty()) {
    const auto end = text.find('\n');
    reader.line(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return reader.result();
}

bool isChordPro(std::string_view file) {
  const std::string whole = platform::foreignText(file);
  const std::string_view text(whole);
  if (text.find("{start_of_grid") != std::string_view::npos ||
      text.find("{sog") != std::string_view::npos)
    return true;
  for (auto at = text.find('['); at != std::string_view::npos; at = text.find('[', at + 1)) {
    const std::string_view rest = text.substr(at + 1);
    const auto end = rest.find_first_of("]\n");
    constexpr std::size_t kLongestName = 12;
    if (end == std::string_view::npos || end == 0 || end > kLongestName || rest[end] != ']')
      continue;
    constexpr std::string_view kOfNames = "ABCDEFGH#bmajdinsugM0123456789+-/()";
    const bool isName = rest.substr(0, end).find_first_not_of(kOfNames) == std::string_view::npos;
    if (isName && rest.front() >= 'A' && rest.front() <= 'H') return true;
  }
  return false;
}

}  // namespace korvel
