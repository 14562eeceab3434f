// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

struct AVCodec;

/// What the media library may make of a file. It knows far more than recordings: lists of other
/// files, which it would play, pictures, music that is computed, formats of games. What is not
/// named here is left alone, so that a file is read that was chosen, and no other one, and that a
/// crafted one meets no reader that nobody needs. Part of MediaFile, MediaAsset and MediaDecoder.
namespace korvel::platform::media {

/// Names of the containers, separated by commas, as the library wants them.
const char* containers();
/// Names of the decoders, likewise. None of them is for pictures.
const std::string& decoders();
/// The decoder of a coding, one of AVCodecID; null when there is none or it is none of these.
const AVCodec* decoderOf(int coding);

}  // namespace korvel::platform::media
