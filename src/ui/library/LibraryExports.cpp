// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <optional>

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "platform/files/Files.h"
#include "playback/SongRenderer.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Synthesizers.h"
#include "ui/desktop/Text.h"
#include "ui/dialogs/ExportFile.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/SongFormats.h"
#include "workflow/exporting/ExportAlbumCommand.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

const QString kChordPro = ".cho";
/// What a page of chords is written as, the papers first.
const QStringList kPages{".pdf", ".png", ".svg", ".txt", kChordPro};

/// What is drawn as it is printed.
struct PaperName {
  QString ending;
  const char* name;
};

const std::array kPapers{
    PaperName{".pdf", QT_TRANSLATE_NOOP("korvel::ui::LibraryActions", "PDF document")},
    PaperName{".png", QT_TRANSLATE_NOOP("korvel::ui::LibraryActions", "Picture")},
    PaperName{".svg", QT_TRANSLATE_NOOP("korvel::ui::LibraryActions", "Scalable picture")},
};

QString proposedPath(const std::string& title) {
  return QDir(Preferences().exportFolder()).filePath(toText(fileNameOf(title)));
}

}  // namespace

void LibraryActions::exportSongFile(QBSong* song) {
  const platform::Ref<QBSong> kept = song;
  QStringList filters;
  for (const FormatName& format : kFormats) filters.append(filterOf(format));
  filters.append(tr("Sound of the whole song") + " (*.wav)");
  const auto loop = SongRenderer::loopOf(*song);
  const std::size_t sounds = loop ? 2 : 1;
  if (loop)
    filters.append(tr("Sound of the loop, chords %1 to %2").arg(loop->from).arg(loop->to) +
                   " (*.wav)");
  const auto filterOfPaper = [](const PaperName& paper) {
    return tr(paper.name) + " (*" + paper.ending + ')';
  };
  for (const PaperName& paper : kPapers) filters.append(filterOfPaper(paper));
  for (const QString& ending : kPages) filters.append(tr("Page of chords") + " (*" + ending + ')');
  QString chosen = filters.first();
  const QString file = QFileDialog::getSaveFileName(
      m_window, tr("Export Song"), proposedPath(song->title()), filters.join(";;"), &chosen);
  if (file.isEmpty()) return;
  Preferences().setExportFolder(QFileInfo(file).absolutePath());
  for (const QString& ending : kPages)
    if (chosen == tr("Page of chords") + " (*" + ending + ')' ||
        (ending == kChordPro && file.endsWith(ending, Qt::CaseInsensitive)))
      return exportPage(*kept, file, ending);
  for (const PaperName& paper : kPapers)
    if (file.endsWith(paper.ending, Qt::CaseInsensitive))
      return exportPaper(*kept, file, paper.ending);
  for (const PaperName& paper : kPapers)
    if (chosen == filterOfPaper(paper) && !formatNamedBy(file))
      return exportPaper(*kept, file, paper.ending);
  // Papers, which the name has turned out not to be, stand behind sounds.
  const auto format = static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(chosen)));
  exportAs(*kept, file, format < kFormats.size() + sounds ? format : 0);
}

void LibraryActions::exportPaper(QBSong& song, const QString& file, const QString& ending) {
  const bool named = file.endsWith(ending, Qt::CaseInsensitive);
  const QString path = named ? file : file + ending;
  if (named || mayReplace(path)) emit paperWanted(&song, path);
}

void LibraryActions::exportPage(QBSong& song, const QString& file, const QString& ending) {
  const bool named = file.endsWith(ending, Qt::CaseInsensitive);
  const QString path = named ? file : file + ending;
  if (named || mayReplace(path)) emit pageWanted(&song, path);
}

/// format: index into kFormats, or one beyond for sound, and two for that of the loop.
void LibraryActions::exportAs(QBSong& song, const QString& file, std::size_t format) {
  const bool asChosen = file.endsWith(endingOf(format), Qt::CaseInsensitive);
  const auto named = asChosen ? std::optional(format) : formatNamedBy(file);
  const QString path = named ? file : file + endingOf(format);
  // The dialog has asked for the name as it was typed only.
  if (!named && !mayReplace(path)) return;
  format = named.value_or(format);
  attempt([&] {
    if (format >= kFormats.size())
      renderSong(song, format > kFormats.size() ? RenderedPart::loop : RenderedPart::song, path);
    else
      exportSong(song, kFormats.at(format).format, path.toStdString());
  });
}

bool LibraryActions::mayReplace(const QString& file) { return mayReplaceFile(m_window, file); }

void LibraryActions::renderSong(QBSong& song, RenderedPart part, const QString& file) {
  const auto tempo =
      Preferences().strictTempo() ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded;
  run(std::make_shared<RenderSongCommand>(&song, part, file.toStdString(), newSynthesizer(),
                                          tempo));
}

void LibraryActions::run(const std::shared_ptr<QBCommand>& job) {
  QBSession::session().addJob(job);
  try {
    job->runInBackground();
  } catch (...) {
    QBSession::session().removeJob(*job);
    throw;
  }
}

void LibraryActions::exportAll(QBAlbum& album, SongFormat format) {
  exportInto([&](const std::string& folder) {
    return std::make_shared<ExportAlbumCommand>(album, format, folder);
  });
}

void LibraryActions::exportInto(const Exporter& exporter) {
  Preferences preferences;
  const QString folder = QFileDialog::getExistingDirectory(m_window, tr("Export All Songs Into"),
                                                           preferences.exportFolder());
  if (folder.isEmpty()) return;
  preferences.setExportFolder(folder);
  run(exporter(folder.toStdString()));
}

void LibraryActions::exportInstrument(QBInstrument& instrument) {
  const QString file = chooseExportFile(m_window, tr("Export Instrument"), instrument.name(),
                                        tr("Instrument definitions (*.xml)"), {".xml"});
  if (file.isEmpty()) return;
  attempt([&] { platform::writeAtomically(file.toStdString(), definitionOf(instrument)); });
}

}  // namespace korvel::ui
