// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/persistence/Ref.h"

namespace korvel {

class QBAlbum;

/// Makes names that are still free.
class QBNameMgr {
 public:
  /// The album may be none when only an album's name is wanted.
  QBNameMgr(QBAlbum* album, std::string name);
  ~QBNameMgr();

  /// The name, with "_2" appended until no song of the album has it.
  std::string newName();
  /// The name, with "_2" appended until no album has it.
  std::string newAlbumName();

 private:
  platform::Ref<QBAlbum> m_album;
  std::string m_name;
};

}  // namespace korvel
