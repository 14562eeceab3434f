// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/RememberedPages.h"

#include <QCryptographicHash>
#include <algorithm>
#include <optional>

#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/page/PageOfSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

/// Windows on several stores have the same preferences.
QString keyOf(const QBSong& song) {
  const QByteArray path = QByteArray::fromStdString(QBTabMgr::storePath());
  return "pages/" + QCryptographicHash::hash(path, QCryptographicHash::Md5).toHex() + '/' +
         QString::number(song.objectId()) + '/';
}

}  // namespace

PageLook RememberedPages::of(const QBSong& song) const {
  const QString key = keyOf(song);
  PageLook look;
  if (m_store.contains(key + "capo"))
    look.options.capo =
        std::clamp(m_store.value(key + "capo").toInt(), 0, PageOptions::kHighestCapo);
  look.options.halfTones = std::clamp(m_store.value(key + "halfTones").toInt(), -11, 11);
  look.options.numbers =
      static_cast<ChordNumbers>(std::clamp(m_store.value(key + "numbers").toInt(), 0, 2));
  const QStringList shapes = m_store.value(key + "shapes").toStringList();
  for (qsizetype i = 0; i + 1 < shapes.size(); i += 2) look.shapes[shapes[i]] = shapes[i + 1];
  return look;
}

void RememberedPages::remember(const QBSong& song, const PageLook& look) {
  const QString key = keyOf(song);
  m_store.remove(key.chopped(1));
  if (look.options.capo) m_store.setValue(key + "capo", *look.options.capo);
  if (look.options.halfTones != 0) m_store.setValue(key + "halfTones", look.options.halfTones);
  if (look.options.numbers != ChordNumbers::none)
    m_store.setValue(key + "numbers", static_cast<int>(look.options.numbers));
  QStringList shapes;
  for (auto shape = look.shapes.begin(); shape != look.shapes.end(); ++shape)
    shapes << shape.key() << shape.value();
  if (!shapes.isEmpty()) m_store.setValue(key + "shapes", shapes);
}

SongPage pageOf(const PageSource& source, const PageLook& look) {
  SongPage page = pageOf(source, look.options);
  for (PageGrip& grip : page.grips) {
    const QString chosen = look.shapes.value(toText(grip.shape));
    if (chosen.isEmpty()) continue;
    std::optional<ChordShape> shape = shapeWritten(chosen.toStdString());
    if (!shape) continue;
    if (page.leftHanded) std::ranges::reverse(*shape);
    const auto other = std::ranges::find(grip.others, *shape);
    if (other != grip.others.end())
      *other = grip.frets;
    else if (*shape != grip.frets)
      grip.others.insert(grip.others.begin(), grip.frets);
    grip.frets = *shape;
    grip.fingers.fill(0);
    grip.barre.reset();
  }
  return page;
}

SongPage rememberedPageOf(QBSong& song) {
  PageLook look = RememberedPages().of(song);
  look.options.leftHanded = Preferences().leftHanded();
  return pageOf(pageSourceOf(song), look);
}

}  // namespace korvel::ui
