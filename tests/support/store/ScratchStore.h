// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "support/store/ScratchFolder.h"

namespace korvel::test {

/// A new store in a folder of its own, which the shared manager works on meanwhile: empty, or as a
/// first start of the program fills it when it is first used.
class ScratchStore {
 public:
  enum class Content { none, ofFirstStart };
  explicit ScratchStore(Content content = Content::none);
  ScratchStore(const ScratchStore&) = delete;
  ScratchStore& operator=(const ScratchStore&) = delete;
  ~ScratchStore();

  const std::string& path() const { return m_path; }
  const ScratchFolder& folder() const { return m_folder; }

 private:
  ScratchFolder m_folder;
  std::string m_path = m_folder.file("Korvel.sqlite");
};

}  // namespace korvel::test
