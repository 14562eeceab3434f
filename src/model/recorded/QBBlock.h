// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "music/ChordStep.h"
#include "platform/persistence/ManagedObject.h"

namespace korvel {

class QBChord;
class QBSample;

/// The samples of one time step: up to 32768 bytes, that is 16384 signed 16-bit samples,
/// low byte first.
class QBBlock final : public platform::ManagedObject {
 public:
  static constexpr std::size_t kSamples = kSamplesOfChord;
  static constexpr std::size_t kBytes = kSamples * sizeof(std::int16_t);

  static platform::EntityDescription describe();

  int position() const { return read(m_position); }
  void setPosition(int value) { assign(m_position, value); }
  const platform::Bytes& data() const { return readOnDemand(m_data); }
  void setData(platform::Bytes value) { assign(m_data, std::move(value)); }
  QBChord* chord() const;
  void setChord(QBChord* value);
  platform::Members<QBSample> samples() const;

  /// Counts up from 1.
  int nextPosition() { return ++m_samplePos; }
  QBSample* addSample(std::int16_t value);
  /// By position, ascending.
  std::vector<platform::Ref<QBSample>> allSamples() const;
  /// Same sample values in the same order.
  bool equals(const QBBlock& other) const;

  /// Appends bytes; the caller keeps to `space`.
  void addData(std::span<const std::byte> bytes);
  bool isFilled() const { return data().size() >= kBytes; }
  /// Bytes until the block is full.
  std::uint32_t space() const;
  /// The samples, which are also added to the running sum of `average`.
  std::vector<std::int16_t> toSamples();
  /// Running sum by the number of samples, unsigned. Throws std::domain_error for an empty block.
  std::uint64_t average() const;

  std::int64_t m_sum = 0;           ///< Of all samples handed out by toSamples.
  std::int64_t m_nmbOfSamples = 0;  ///< How many those were.

 private:
  platform::Attribute<int> m_position;
  platform::Attribute<platform::Bytes> m_data;
  platform::ToOne<QBChord> m_chord;
  platform::ToMany<QBSample> m_samples;

  int m_samplePos = 0;
};

/// The signed 16-bit value of two bytes, low byte first.
inline std::int16_t bytesToShort(std::byte low, std::byte high) {
  return static_cast<std::int16_t>(std::to_integer<std::uint16_t>(low) |
                                   std::to_integer<std::uint16_t>(high) << 8);
}

}  // namespace korvel
