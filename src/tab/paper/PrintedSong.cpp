// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/paper/PrintedSong.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

#include "model/songs/QBSong.h"

/// The library has none for values that may be missing.
template <class T>
struct nlohmann::adl_serializer<std::optional<T>> {
  static void to_json(json& written, const std::optional<T>& value) {
    if (value)
      written = *value;
    else
      written = nullptr;
  }
  static void from_json(const json& written, std::optional<T>& value) {
    if (written.is_null())
      value.reset();
    else
      value = written.get<T>();
  }
};

namespace korvel {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(BarSign, event, from, ticks, value, isDotted, isRest, isTied,
                                   beam, triplet)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns::Note, x, bar, sign)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns::Line, string, from, to)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns::Time, x, columns, beat, beattype)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns::System, notes, lower, ties, rings, times)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns::Tempo, x, row, beats, isDotted, isSwung)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabSigns, systems, tempo)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabLayout::Place, chord, x, y, columns, isSilent)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TabLayout::System, first, top, end)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(StaffGrip, chord, shape)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageChord, beat, beats, name, sounding, isDoubtful, goesOn,
                                   index)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageWords, beat, text)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageBar, number, beat, beattype, beats, showsTime, chords, words,
                                   ticks, length)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageSection, letter, times, isAgain, bars)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PageGrip, name, shape, sounding, frets, fingers, baseFret, barre,
                                   isAsPlayed, others)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(SongPage, title, artist, key, soundingKey, isGuessedKey, capo,
                                   halfTones, tempo, metre, isInBars, leftHanded, sections, grips)

namespace {

using Json = nlohmann::json;

Json contentOf(const PrintedTablature& tablature) {
  const TabLayout& layout = tablature.layout;
  return {{"grips", tablature.grips},  {"leftHanded", tablature.leftHanded},
          {"rows", layout.rows()},     {"systems", layout.systems()},
          {"places", layout.places()}, {"signs", layout.signs()}};
}

PrintedTablature tablatureOf(const Json& json) {
  TabLayout layout(json.at("rows").get<std::vector<std::string>>(),
                   json.at("systems").get<std::vector<TabLayout::System>>(),
                   json.at("places").get<std::vector<TabLayout::Place>>(),
                   json.at("signs").get<TabSigns>());
  return {std::move(layout), json.at("grips").get<std::vector<StaffGrip>>(),
          json.at("leftHanded").get<bool>()};
}

}  // namespace

PrintedSong printedTablature(QBSong& song, bool withGrips, bool leftHanded) {
  PrintedTablature tablature{TabLayout::forExport(song)};
  if (withGrips) tablature.grips = staffGripsOf(song);
  tablature.leftHanded = leftHanded;
  return {song.title(), std::move(tablature)};
}

PrintedSong printedPage(SongPage page) {
  std::string title = page.title;
  return {std::move(title), std::move(page)};
}

std::filesystem::path nameOfPart(const std::filesystem::path& file, std::size_t number,
                                 std::size_t count) {
  if (count == 1) return file;
  return file.parent_path() /
         (file.stem().string() + '-' + std::to_string(number) + file.extension().string());
}

std::string handedOver(const PrintedSong& song) {
  Json json{{"title", song.title}};
  if (const auto* tablature = std::get_if<PrintedTablature>(&song.content))
    json["tablature"] = contentOf(*tablature);
  else
    json["page"] = std::get<SongPage>(song.content);
  // Titles of old songs may hold bytes that are no text.
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

PrintedSong takenOver(const std::string& text) {
  try {
    const Json json = Json::parse(text);
    const auto title = json.at("title").get<std::string>();
    if (json.contains("page")) return {title, json["page"].get<SongPage>()};
    return {title, tablatureOf(json.at("tablature"))};
  } catch (const Json::exception& error) {
    throw std::runtime_error(error.what());
  }
}

}  // namespace korvel
