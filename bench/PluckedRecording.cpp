// SPDX-License-Identifier: GPL-3.0-or-later
#include "PluckedRecording.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "platform/media/WaveFileWriter.h"
#include "platform/sound/SampleRate.h"

namespace korvel::bench {

void writePluckedRecording(const std::string& file, double seconds) {
  platform::WaveFileWriter writer(file, platform::kSampleRate, 1);
  std::vector<std::int16_t> second(platform::kSampleRate);
  for (int note = 0; note < seconds; ++note) {
    const double frequency = 82.4 * std::exp2(note % 30 / 12.0);
    for (std::size_t i = 0; i < second.size(); ++i) {
      const double t = static_cast<double>(i) / platform::kSampleRate;
      second[i] = static_cast<std::int16_t>(12000 * std::exp(-3 * t) *
                                            std::sin(2 * std::numbers::pi * frequency * t));
    }
    writer.write(second);
  }
  writer.finish();
}

}  // namespace korvel::bench
