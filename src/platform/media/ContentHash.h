// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

struct AVMurMur3;

namespace korvel::platform {

/// What tells a file from others by its content alone, read a piece at a time. It is quick, and
/// not meant to withstand forgery.
class ContentHash {
 public:
  /// A file that cannot be read has no content.
  explicit ContentHash(const std::filesystem::path& file);
  ContentHash(const ContentHash&) = delete;
  ContentHash& operator=(const ContentHash&) = delete;
  ~ContentHash();

  /// Reads a piece, some milliseconds of work; false at the end.
  bool step();
  /// Bytes read so far.
  std::int64_t size() const { return m_size; }
  /// 32 hexadecimal digits; empty for a file without content. To be called once, at the end.
  std::string digits();

 private:
  struct Freed {
    void operator()(AVMurMur3* hash) const;
  };

  std::ifstream m_file;
  std::vector<char> m_piece;
  std::unique_ptr<AVMurMur3, Freed> m_hash;
  std::int64_t m_size = 0;
};

}  // namespace korvel::platform
