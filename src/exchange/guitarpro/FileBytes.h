// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvel::exchange::guitarpro {

/// Goes through the bytes of a file in the older formats: numbers with their lowest byte first, and
/// texts with their lengths before them. Throws a UserError where the file ends too early, or
/// `damaged`.
class FileBytes {
 public:
  /// The bytes must outlive this.
  explicit FileBytes(std::string_view bytes) : m_bytes(bytes) {}

  bool atEnd() const { return m_at == m_bytes.size(); }
  void skip(std::size_t count) { take(count); }
  /// 0 to 255.
  int byte();
  /// -128 to 127.
  int signedByte();
  int shortNumber();
  int number();
  /// A number of things that there are; any other is damage.
  int count(int least, int most);
  /// A text with its length in a byte, in a field of so many bytes; of its own length for 0.
  std::string text(std::size_t room);
  /// The same in a field whose size stands before it.
  std::string sizedText();
  /// A text with its length in a number.
  std::string longText();

  /// Says where the file makes no sense.
  [[noreturn]] void damaged() const;

 private:
  std::string_view take(std::size_t count);

  std::string_view m_bytes;
  std::size_t m_at = 0;
};

/// UTF-8 of a text in UTF-8 or, where it is none, in the letters of Western Europe (Windows-1252),
/// without control characters.
std::string readable(std::string_view bytes);

}  // namespace korvel::exchange::guitarpro
