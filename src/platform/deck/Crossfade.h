// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace korvel::platform {

/// Has what plays go over into what comes, within two pieces of one length, interleaved stereo:
/// `old` becomes the transition. Its power stays even: the more alike the two are, the more their
/// sum is held back, so that no sample steps further than those of the sounds themselves.
void crossfade(std::span<float> old, std::span<const float> fresh);

/// The same from or to silence; `samples` becomes the transition.
void fadeIn(std::span<float> samples);
void fadeOut(std::span<float> samples);

}  // namespace korvel::platform
