// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

#include "platform/files/Descriptor.h"

namespace korvel::platform {

/// What becomes of a file that has the name already: it is replaced, or it stays. A store of songs
/// is replaced by another store only.
enum class Existing { replaced, kept, replacedByStore };

/// A file that is written piece by piece under another name in its folder and appears under its own
/// when it is complete. What is not complete when the object goes is removed. All throw FileError.
class NewFile {
 public:
  /// A symbolic link stays, and its target is replaced, unless that is a store of songs.
  NewFile(const std::filesystem::path& file, Existing existing, Readers readers = Readers::asUsual);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  const std::filesystem::path& file() const { return m_file; }
  void write(std::string_view bytes) { m_out.write(bytes); }
  /// The open file, for libraries that write into it themselves.
  int descriptor() const { return m_out.number(); }
  /// Where it stands until then, for those that want a name.
  const std::filesystem::path& temporary() const { return m_temporary; }
  /// Gives the complete file its name; to be called once. False when a file of that name has been
  /// made meanwhile and was to be kept.
  bool appear();

 private:
  std::filesystem::path m_file, m_target, m_temporary;
  Existing m_existing;
  Descriptor m_out;
};

}  // namespace korvel::platform
