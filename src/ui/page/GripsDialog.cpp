// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/GripsDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "platform/files/FileError.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/ExportFile.h"
#include "ui/page/GripsSheet.h"
#include "ui/page/PagePapers.h"
#include "ui/paper/PaperFiles.h"

namespace korvel::ui {
namespace {

constexpr QSize kSize{620, 560};

}  // namespace

GripsDialog::GripsDialog(const SongPage& page, QWidget* parent)
    : QDialog(parent),
      m_sheet(new GripsSheet(page)),
      m_problem(new QLabel),
      m_inSong(new QPushButton(tr("Play in the Song"))),
      m_atCursor(new QPushButton(tr("Play at the Cursor"))) {
  setWindowTitle(tr("Grips of %1").arg(toText(page.title)));
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(m_sheet);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  m_inSong->setToolTip(tr("All places of this chord in the song are played in this grip"));
  m_atCursor->setToolTip(tr("The chord at the song's cursor is played in this grip"));
  for (QPushButton* button : {m_inSong, m_atCursor})
    buttons->addButton(button, QDialogButtonBox::ActionRole);
  connect(buttons->addButton(tr("Print ..."), QDialogButtonBox::ActionRole), &QPushButton::clicked,
          this, &GripsDialog::print);
  connect(buttons->addButton(tr("Export as PDF ..."), QDialogButtonBox::ActionRole),
          &QPushButton::clicked, this, &GripsDialog::savePdf);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_sheet, &GripsSheet::chosen, this, &GripsDialog::choose);
  connect(m_sheet, &GripsSheet::cursorMoved, this, [this, area] {
    const QRect place = m_sheet->cursorRect();
    area->ensureVisible(place.center().x(), place.center().y(), place.width() / 2,
                        place.height() / 2);
    showCursor();
  });
  const auto play = [this](bool everywhere) {
    m_problem->clear();
    emit songWanted(m_sheet->grip(), m_sheet->shape(), everywhere);
  };
  connect(m_inSong, &QPushButton::clicked, this, [play] { play(true); });
  connect(m_atCursor, &QPushButton::clicked, this, [play] { play(false); });
  m_problem->setWordWrap(true);
  auto* hint = new QLabel(
      tr("The arrow keys go to a grip. Enter or a click puts one of the others on the page; on the "
         "page's own it asks for any other one."));
  hint->setWordWrap(true);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(hint);
  rows->addWidget(area, 1);
  rows->addWidget(m_problem);
  rows->addWidget(buttons);
  resize(kSize);
  m_sheet->setFocus();
  showCursor();
}

void GripsDialog::setPage(const SongPage& page) { m_sheet->setPage(page); }

void GripsDialog::offerSong(bool isOffered, int gripAtCursor) {
  m_isOffered = isOffered;
  m_gripAtCursor = gripAtCursor;
  showCursor();
}

void GripsDialog::tell(const QString& text) { m_problem->setText(text); }

void GripsDialog::choose(int grip, int other) {
  m_problem->clear();
  if (other < 0) return emit shapeWanted(grip);
  emit pageWanted(grip, m_sheet->shape());
  m_sheet->goTo(grip);
}

void GripsDialog::showCursor() {
  const int grip = m_sheet->grip();
  m_inSong->setEnabled(m_isOffered && grip >= 0);
  m_atCursor->setEnabled(m_isOffered && grip >= 0 && grip == m_gripAtCursor);
}

void GripsDialog::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted)
    printOn(printer, pageWork(m_sheet->page(), font(), PageSheet::Parts::grips));
}

void GripsDialog::savePdf() {
  const QString title = tr("%1 grips", "the title of a song").arg(toText(m_sheet->page().title));
  const QString file = chooseExportFile(this, tr("Export as PDF"), title.toStdString(),
                                        tr("PDF documents (*.pdf)"), {".pdf", ".png", ".svg"});
  if (file.isEmpty()) return;
  try {
    savePaper(pageWork(m_sheet->page(), font(), PageSheet::Parts::grips), file.toStdString());
  } catch (const platform::FileError& problem) {
    QMessageBox::warning(this, windowTitle(), translated(problem));
  }
}

}  // namespace korvel::ui
