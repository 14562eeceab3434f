// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel::test {

/// Runs the ffmpeg command line tool, which makes the media files of tests and decodes them a
/// second time for comparison. Throws when it fails. Existing files are overwritten.
void ffmpeg(const std::vector<std::string>& arguments);

/// A synthesised sound in a file; its format follows from the name's ending and the encoding
/// arguments. Channel i holds a tone of (i + 1) times the frequency. A level above 1 clips.
struct Sound {
  double frequency = 220;
  double seconds = 1;
  int sampleRate = 44100;
  int channels = 1;
  double level = 0.5;
};
void encode(const Sound& sound, const std::string& file,
            const std::vector<std::string>& encoding = {});

}  // namespace korvel::test
