// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/midi/SoundFontFile.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

namespace korvel::platform {
namespace {

constexpr std::size_t kChunkHead = 8;
constexpr std::size_t kFormType = 4;
/// A preset's record: 20 characters of name, program, bank, and what does not matter here.
constexpr std::size_t kPresetSize = 38;
constexpr std::size_t kProgramAt = 20;
constexpr std::size_t kBankAt = 22;

[[noreturn]] void refuse(const std::filesystem::path& path) {
  throw SoundFontError(path,
                       phrase("Message", "is no SoundFont; choose a file of type sf2 or sf3"));
}

[[noreturn]] void refuseDamaged(const std::filesystem::path& path) {
  throw SoundFontError(
      path, phrase("Message", "is a damaged SoundFont; fetch it anew or choose another one"));
}

struct Chunk {
  std::string name;
  std::uint64_t begin = 0, size = 0;  ///< Of its content.

  std::uint64_t end() const { return begin + size; }
};

/// The chunks of a RIFF file: each a name, a size and content.
class ChunkReader {
 public:
  explicit ChunkReader(const std::filesystem::path& path) : m_path(path) {
    std::error_code unknown;
    if (!std::filesystem::exists(path, unknown))
      throw SoundFontError(path,
                           phrase("Message", "there is no such SoundFont; choose another one"));
    if (!std::filesystem::is_regular_file(path, unknown)) refuse(path);
    m_size = std::filesystem::file_size(path);
    m_in.open(path, std::ios::binary);
    if (!m_in)
      throw SoundFontError(path,
                           phrase("Message", "the SoundFont cannot be read; check its rights"));
  }

  std::string text(std::uint64_t begin, std::size_t length) {
    std::string bytes(length, '\0');
    m_in.seekg(static_cast<std::streamoff>(begin));
    if (!m_in.read(bytes.data(), static_cast<std::streamsize>(length))) refuse(m_path);
    return bytes;
  }

  Chunk chunkAt(std::uint64_t begin) {
    const std::string head = text(begin, kChunkHead);
    std::uint64_t size = 0;
    for (std::size_t i = kChunkHead; i-- > 4;)
      size = size * 256 + static_cast<unsigned char>(head[i]);
    return {head.substr(0, 4), begin + kChunkHead, size};
  }

  /// The list of that type within a chunk, or the chunk of that name within a list.
  Chunk find(const Chunk& outer, const std::string& name) {
    std::uint64_t at = outer.begin + kFormType;
    while (at + kChunkHead + kFormType <= outer.end()) {
      Chunk chunk = chunkAt(at);
      const bool list = chunk.name == "LIST";
      if (chunk.end() > m_size) refuseDamaged(m_path);
      if ((list ? text(chunk.begin, kFormType) : chunk.name) == name) return chunk;
      at = after(chunk, outer);
    }
    refuseDamaged(m_path);
  }

  std::uint64_t size() const { return m_size; }

 private:
  /// A byte fills chunks of odd size up, which compressed fonts leave out.
  std::uint64_t after(const Chunk& chunk, const Chunk& outer) {
    const bool odd = chunk.size % 2 != 0 && chunk.end() + kChunkHead <= outer.end();
    return odd && text(chunk.end(), 1) == std::string(1, '\0') ? chunk.end() + 1 : chunk.end();
  }

  std::filesystem::path m_path;
  std::ifstream m_in;
  std::uint64_t m_size = 0;
};

int numberAt(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]) + 256 * static_cast<unsigned char>(bytes[at + 1]);
}

Chunk wholeFont(ChunkReader& file, const std::filesystem::path& path) {
  if (file.size() < kChunkHead + kFormType) refuse(path);
  Chunk font = file.chunkAt(0);
  if (font.name != "RIFF" || file.text(font.begin, kFormType) != "sfbk") refuse(path);
  if (font.end() > file.size()) refuseDamaged(path);
  return font;
}

}  // namespace

SoundFontFile::SoundFontFile(std::filesystem::path path) : m_path(std::move(path)) {
  ChunkReader file(m_path);
  const Chunk font = wholeFont(file, m_path);
  file.find(font, "sdta");
  const Chunk presets = file.find(file.find(font, "pdta"), "phdr");
  const std::string records = file.text(presets.begin, presets.size);
  // The last record only marks the end.
  for (std::size_t at = 0; at + 2 * kPresetSize <= records.size(); at += kPresetSize)
    m_programs.insert({numberAt(records, at + kBankAt), numberAt(records, at + kProgramAt)});
}

}  // namespace korvel::platform
