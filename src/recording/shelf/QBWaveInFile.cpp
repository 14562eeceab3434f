// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/shelf/QBWaveInFile.h"

#include <limits>

#include "platform/text/PropertyList.h"

namespace korvel {
namespace {

using Limits = std::numeric_limits<std::int16_t>;

std::vector<std::int16_t> asSamples(const std::vector<std::int64_t>& numbers) {
  std::vector<std::int16_t> samples;
  samples.reserve(numbers.size());
  for (const std::int64_t number : numbers) {
    if (number < Limits::min() || number > Limits::max()) return {};
    samples.push_back(static_cast<std::int16_t>(number));
  }
  return samples;
}

}  // namespace

void QBWaveInFile::startRecord() {
  m_samples = asSamples(platform::readIntegers(m_file).value_or(std::vector<std::int64_t>{}));
}

}  // namespace korvel
