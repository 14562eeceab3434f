// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/MediaFile.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <array>
#include <cerrno>
#include <new>
#include <string>
#include <system_error>
#include <utility>

#include "platform/media/MediaError.h"
#include "platform/media/MediaFormats.h"

namespace korvel::platform {
namespace {

namespace fs = std::filesystem;

/// Packets that are looked at for coded sound in what the header of a file calls plain samples. The
/// library's 2500 take longer than everything else about opening a WAV file.
constexpr int kProbedPackets = 4;

/// The library would write its findings to the program's standard error.
void silenceLibrary() {
  static const bool silent = [] {
    av_log_set_level(AV_LOG_QUIET);
    return true;
  }();
  static_cast<void>(silent);
}

std::string messageOf(int code) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(code, text.data(), text.size());
  return text.data();
}

/// A pipe or a device could keep its reader waiting for ever.
void refuseAllButPlainFiles(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status))
    throw MediaError(path, UserText(phrase("Message", "cannot open: %1"), error.message()));
  if (fs::is_directory(status))
    throw MediaError(path, phrase("Message", "cannot open: it is a folder"));
  if (!fs::is_regular_file(status))
    throw MediaError(path, phrase("Message", "cannot open: it is not a plain file"));
  if (fs::is_empty(path, error))
    throw MediaError(path, phrase("Message", "cannot open: it is empty"));
}

AVIOContext* openInput(const fs::path& path) {
  AVIOContext* input = nullptr;
  // The prefix keeps a colon in a file name from being read as a protocol.
  const int result = avio_open(&input, ("file:" + path.string()).c_str(), AVIO_FLAG_READ);
  if (result < 0)
    throw MediaError(path, UserText(phrase("Message", "cannot open: %1"), messageOf(result)));
  return input;
}

/// For the context, which gives it back itself.
char* copyOf(const char* text) {
  char* copy = av_strdup(text);
  if (!copy) throw std::bad_alloc();
  return copy;
}

int refuseOtherFile(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
  return AVERROR(EPERM);
}

AVFormatContext* openContext(const fs::path& path, AVIOContext* input) {
  AVFormatContext* context = avformat_alloc_context();
  if (!context) throw std::bad_alloc();
  context->pb = input;
  context->io_open = refuseOtherFile;
  // A list of files would have its entries opened by other means than this context's.
  context->format_whitelist = copyOf(media::containers());
  context->codec_whitelist = copyOf(media::decoders().c_str());
  context->protocol_whitelist = copyOf("file");
  const int probedOfOthers = std::exchange(context->max_probe_packets, kProbedPackets);
  // Frees the context when it fails.
  if (avformat_open_input(&context, path.c_str(), nullptr, nullptr) < 0)
    throw MediaError(
        path, phrase("Message", "cannot open: it is no sound or media file of a known format"));
  context->max_probe_packets = probedOfOthers;  // tracks that are only found later
  return context;
}

}  // namespace

void MediaFile::CloseInput::operator()(AVIOContext* input) const { avio_close(input); }

void MediaFile::CloseContext::operator()(AVFormatContext* context) const {
  avformat_close_input(&context);
}

MediaFile::MediaFile(const fs::path& path) {
  silenceLibrary();
  refuseAllButPlainFiles(path);
  m_input.reset(openInput(path));
  m_context.reset(openContext(path, m_input.get()));
  // What stays unknown after a failure shows in the tracks themselves.
  avformat_find_stream_info(m_context.get(), nullptr);
}

}  // namespace korvel::platform
