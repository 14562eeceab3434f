// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FfmpegTool.h"

#include <stdexcept>

#include "support/Process.h"

namespace korvel::test {
namespace {

std::string source(const Sound& sound) {
  std::string channels;
  for (int i = 1; i <= sound.channels; ++i)
    channels += (i > 1 ? "|" : "") + std::to_string(sound.level) + "*sin(2*PI*t*" +
                std::to_string(i * sound.frequency) + ")";
  return "aevalsrc='" + channels + "':s=" + std::to_string(sound.sampleRate) +
         ":d=" + std::to_string(sound.seconds);
}

}  // namespace

void ffmpeg(const std::vector<std::string>& arguments) {
  std::vector<std::string> command{"ffmpeg", "-nostdin", "-v", "error", "-y", "-bitexact"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  if (runProgram(command).status != 0) throw std::runtime_error("ffmpeg failed: " + command.back());
}

void encode(const Sound& sound, const std::string& file, const std::vector<std::string>& encoding) {
  std::vector<std::string> arguments{"-f", "lavfi", "-i", source(sound)};
  arguments.insert(arguments.end(), encoding.begin(), encoding.end());
  arguments.push_back("file:" + file);
  ffmpeg(arguments);
}

}  // namespace korvel::test
