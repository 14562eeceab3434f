// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>

struct AVFormatContext;
struct AVIOContext;

namespace korvel::platform {

/// One media file open for reading from its start, with its tracks known. Reads this one plain
/// file and nothing else: a playlist or an index that refers to other files or to the network
/// leads nowhere. Part of MediaAsset and MediaReader.
class MediaFile {
 public:
  /// Throws MediaError.
  explicit MediaFile(const std::filesystem::path& path);

  AVFormatContext* context() const { return m_context.get(); }

 private:
  struct CloseInput {
    void operator()(AVIOContext* input) const;
  };
  struct CloseContext {
    void operator()(AVFormatContext* context) const;
  };
  std::unique_ptr<AVIOContext, CloseInput> m_input;
  std::unique_ptr<AVFormatContext, CloseContext> m_context;
};

}  // namespace korvel::platform
