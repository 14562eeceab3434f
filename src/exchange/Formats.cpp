// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/Formats.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <span>

#include "exchange/guitarpro/GuitarPro.h"
#include "exchange/midi/MidiReader.h"
#include "exchange/musicxml/CompressedMusicXml.h"
#include "exchange/musicxml/MusicXmlReader.h"
#include "exchange/text/TabTextReader.h"
#include "platform/files/Files.h"
#include "platform/text/ForeignText.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

namespace fs = std::filesystem;
using platform::phrase;
using platform::UserError;

constexpr std::size_t kHead = 65536;
constexpr std::size_t kMostBytes = kMostMebibytes << 20U;

struct FormatReader {
  Format format;
  std::span<const std::string_view> endings;
  Piece (*read)(std::string_view bytes);
};

constexpr std::string_view kGuitarPro[] = {"gp5", "gp4", "gp3", "gp", "gpx"};
constexpr std::string_view kMusicXml[] = {"musicxml", "xml"};
constexpr std::string_view kCompressed[] = {"mxl"};
constexpr std::string_view kMidi[] = {"mid", "midi", "kar", "rmi"};
constexpr std::string_view kTabText[] = {"tab", "txt"};

constexpr std::string_view kUnread[] = {"abc",  "alphatex", "atex", "capx", "ly",  "mscx", "mscz",
                                        "musx", "mus",      "nwc",  "ptb",  "sib", "tef",  "tg"};

constexpr FormatReader kFormatReaders[] = {
    {Format::guitarPro, kGuitarPro, readGuitarPro},
    {Format::musicXml, kMusicXml, readMusicXml},
    {Format::compressedMusicXml, kCompressed, readCompressedMusicXml},
    {Format::midi, kMidi, readMidi},
    {Format::tabText, kTabText, readTabText}};

std::string inSmallLetters(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

std::string endingOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? "" : inSmallLetters(std::string(name.substr(dot + 1)));
}

bool has(std::string_view bytes, std::string_view part) {
  return bytes.find(part) != std::string_view::npos;
}

bool isArchive(std::string_view bytes) { return bytes.starts_with("PK\x03\x04"); }

/// The names of what an archive holds stand in it as they are.
std::optional<Format> formatOfArchive(std::string_view bytes, const std::string& ending) {
  if (has(bytes, "score.gpif")) return Format::guitarPro;
  if (has(bytes, "META-INF/container.xml")) return Format::compressedMusicXml;
  if (ending == "gp") return Format::guitarPro;
  if (ending == "mxl") return Format::compressedMusicXml;
  return std::nullopt;
}

bool isMidi(std::string_view bytes) {
  return bytes.starts_with("MThd") || (bytes.starts_with("RIFF") && bytes.substr(8, 4) == "RMID");
}

/// Versions 3 to 5 begin with a line of 30 characters that says so, the others with marks of the
/// container that holds them.
bool isGuitarPro(std::string_view bytes) {
  return (!bytes.empty() && bytes.substr(1).starts_with("FICHIER GUITAR")) ||
         bytes.starts_with("BCFZ") || bytes.starts_with("BCFS");
}

/// Text of two bytes a character has zeros between letters.
bool isMusicXml(std::string_view head) {
  std::string letters(head);
  std::erase(letters, '\0');
  const std::size_t first = letters.find('<');
  return first != std::string::npos && first < 16 &&
         (has(letters, "<score-partwise") || has(letters, "<score-timewise"));
}

bool isText(std::string_view head) {
  if (platform::isWideText(head)) return true;
  const auto isOdd = [](unsigned char c) { return c < ' ' && !std::isspace(c); };
  return !head.empty() && std::ranges::none_of(head, isOdd);
}

bool isTabText(std::string_view head, const std::string& ending) {
  return isText(head) && (ending == "tab" || ending == "txt" || looksLikeTab(head));
}

const FormatReader* readerOf(std::optional<Format> format) {
  for (const FormatReader& reader : kFormatReaders)
    if (reader.format == format) return &reader;
  return nullptr;
}

/// As much as `formatOf` wants to see.
std::string headOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string head(kHead, '\0');
  stream.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
  std::error_code error;
  if (isArchive(head) && fs::file_size(file, error) <= kMostBytes)
    return platform::bytesOrNone(file);
  return head;
}

void requireSize(const std::string& file) {
  std::error_code error;
  const auto size = fs::file_size(file, error);
  if (error || size <= kMostBytes) return;
  throw UserError(phrase("Exchange",
                         "%1: is larger than %2 MiB; save it with fewer tracks in the program that "
                         "it is from, and import that"),
                  file, kMostMebibytes);
}

}  // namespace

std::optional<Format> formatOf(std::string_view bytes, std::string_view name) {
  const std::string ending = endingOf(name);
  if (isArchive(bytes)) return formatOfArchive(bytes, ending);
  if (isMidi(bytes)) return Format::midi;
  if (isGuitarPro(bytes)) return Format::guitarPro;
  const std::string_view head = bytes.substr(0, kHead);
  if (isMusicXml(head)) return Format::musicXml;
  if (isTabText(head, ending)) return Format::tabText;
  return std::nullopt;
}

std::optional<Format> formatOfFile(const std::string& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return std::nullopt;
  const std::optional<Format> format = formatOf(headOf(file), file);
  return readerOf(format) ? format : std::nullopt;
}

std::vector<std::string_view> endingsOfPieces() {
  std::vector<std::string_view> endings;
  for (const FormatReader& reader : kFormatReaders)
    endings.insert(endings.end(), reader.endings.begin(), reader.endings.end());
  return endings;
}

bool isNamedAsPiece(std::string_view name) {
  const std::vector<std::string_view> endings = endingsOfPieces();
  return std::ranges::find(endings, endingOf(name)) != endings.end();
}

bool isNamedAsUnread(std::string_view name) {
  return std::ranges::find(kUnread, endingOf(name)) != std::end(kUnread);
}

Piece readPiece(const std::string& file) {
  requireSize(file);
  const std::string bytes = platform::readWholeFile(file);
  const FormatReader* reader = readerOf(formatOf(bytes, file));
  if (!reader)
    throw UserError(phrase("Exchange",
                           "%1: is of no format that can be read; save it as MIDI or MusicXML in "
                           "the program that it is from, and import that"),
                    file);
  try {
    return reader->read(bytes);
  } catch (const UserError& error) {
    throw UserError(phrase("Exchange", "%1: %2"), file, error.text());
  }
}

}  // namespace korvel::exchange
