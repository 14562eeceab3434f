// SPDX-License-Identifier: GPL-3.0-or-later
// Prints where the time of the precise detection goes for a file, in seconds of the processor, and
// the most memory it took, in bytes.
#include <sys/resource.h>

#include <cstdlib>
#include <ctime>
#include <iostream>

#include "audio/MonoTrack.h"
#include "fingering/Fingering.h"
#include "platform/sound/SampleRate.h"
#include "precise/WindowedEngine.h"

namespace {

using namespace korvel;

/// Adds the processor's time for a piece of work to a sum.
template <class Work>
void measure(double& seconds, const Work& work) {
  const std::clock_t start = std::clock();
  work();
  seconds += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The window that is known.
void hear(precise::WindowedEngine& engine) {
  while (engine.step()) continue;
}

double peakBytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

void print(const char* name, double value) { std::cout << name << ' ' << value << '\n'; }

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: korvel-transcription-phases FILE\n";
    return EXIT_FAILURE;
  }
  MonoTrack track(argv[1]);
  precise::WindowedEngine engine;
  double samples = 0;
  double decoding = 0;
  double hearing = 0;
  double fingering = 0;
  measure(decoding, [&] { track.startRecord(0); });
  for (bool more = true; more;) {
    std::span<const float> slice;
    measure(decoding, [&] { slice = track.readSamples(); });
    more = !slice.empty();
    measure(hearing, [&] {
      more ? engine.add(slice) : engine.finish();
      while (engine.isFull()) hear(engine);
    });
    samples += static_cast<double>(slice.size());
  }
  precise::Findings result;
  measure(hearing, [&] {
    hear(engine);
    result = engine.take();
  });
  measure(fingering, [&] { fingering::Fingering(kStandardPitches, {}).place(result.notes); });
  print("sound", samples / platform::kSampleRate);
  print("decode", decoding);
  print("hear", hearing);
  print("finger", fingering);
  print("notes", static_cast<double>(result.notes.size()));
  print("peak", peakBytes());
  return EXIT_SUCCESS;
}
