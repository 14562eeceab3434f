// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

#include "platform/files/Readers.h"
#include "platform/text/UserText.h"

namespace korvel::platform {

/// An open file or folder, closed with the object. Errors are FileErrors that name the file which
/// the caller asked for, also where another one is open in its place.
class Descriptor {
 public:
  /// flags: of open(2). doing: what the error says when it fails. readers: of a new file.
  Descriptor(const std::filesystem::path& opened, std::filesystem::path named, int flags,
             const UserText& doing, Readers readers = Readers::asUsual);
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  /// Bytes read into the buffer; 0 at the end.
  std::size_t read(char* buffer, std::size_t size) const;
  void write(std::string_view bytes) const;
  /// Returns once the device has it all.
  void flush() const;
  void keepModeOf(const std::filesystem::path& old) const;
  void refuseIrregular() const;
  int number() const { return m_fd; }

 private:
  std::filesystem::path m_named;
  int m_fd;
};

}  // namespace korvel::platform
