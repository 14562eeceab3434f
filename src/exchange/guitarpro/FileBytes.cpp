// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/FileBytes.h"

#include <algorithm>

#include "platform/text/ForeignText.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange::guitarpro {
namespace {

using platform::phrase;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

}  // namespace

std::string_view FileBytes::take(std::size_t count) {
  if (count > m_bytes.size() - m_at)
    throw platform::UserError(phrase("Exchange", "the file ends too early"));
  const std::string_view taken = m_bytes.substr(m_at, count);
  m_at += count;
  return taken;
}

int FileBytes::byte() { return static_cast<unsigned char>(take(1).front()); }

int FileBytes::signedByte() { return static_cast<signed char>(take(1).front()); }

int FileBytes::shortNumber() {
  const auto low = static_cast<unsigned>(byte());
  return static_cast<std::int16_t>(low | static_cast<unsigned>(byte()) << 8U);
}

int FileBytes::number() {
  std::uint32_t number = 0;
  for (unsigned shift = 0; shift < 32; shift += 8)
    number |= static_cast<std::uint32_t>(byte()) << shift;
  return static_cast<std::int32_t>(number);
}

int FileBytes::count(int least, int most) {
  const int count = number();
  if (count < least || count > most) damaged();
  return count;
}

std::string FileBytes::text(std::size_t room) {
  const auto length = static_cast<std::size_t>(byte());
  const std::string_view field = take(room > 0 ? room : length);
  return readable(field.substr(0, length));
}

// The size counts the byte of the length too. Some programs write 0 for an empty text and its byte.
std::string FileBytes::sizedText() {
  const int size = number();
  if (size < 0) damaged();
  return text(static_cast<std::size_t>(std::max(size, 1)) - 1);
}

std::string FileBytes::longText() {
  const int length = number();
  if (length < 0) damaged();
  return readable(take(static_cast<std::size_t>(length)));
}

void FileBytes::damaged() const {
  throw platform::UserError(phrase("Exchange", "the file is damaged: byte %1 makes no sense"),
                            m_at);
}

std::string readable(std::string_view bytes) {
  std::string text(bytes);
  std::erase_if(text, isControl);
  return platform::printable(text) == text ? text : platform::westernText(text);
}

}  // namespace korvel::exchange::guitarpro
