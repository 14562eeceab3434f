// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LocalPaper.h"

#include <langinfo.h>

#include <cstring>

namespace korvel::platform {
namespace {

/// The C library answers these two as words at the beginning of the pointer; what is behind them in
/// it is nothing.
double wordOf(nl_item item) {
  const char* const answer = ::nl_langinfo(item);
  unsigned int word = 0;
  std::memcpy(&word, &answer, sizeof word);
  return word;
}

}  // namespace

PaperSize localPaper() { return {wordOf(_NL_PAPER_WIDTH), wordOf(_NL_PAPER_HEIGHT)}; }

}  // namespace korvel::platform
