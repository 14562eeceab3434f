// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/GripsDialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "platform/files/FileError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/page/GripsSheet.h"
#include "ui/page/PagePapers.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::ui {
namespace {

constexpr QSize kSize{620, 560};

}  // namespace

GripsDialog::GripsDialog(const SongPage& page, Choose choose, QWidget* parent)
    : QDialog(parent), m_sheet(new GripsSheet(page)) {
  setWindowTitle(tr("Grips of %1").arg(toText(page.title)));
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  area->setWidget(m_sheet);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(buttons->addButton(tr("Print ..."), QDialogButtonBox::ActionRole), &QPushButton::clicked,
          this, &GripsDialog::print);
  connect(buttons->addButton(tr("Export as PDF ..."), QDialogButtonBox::ActionRole),
          &QPushButton::clicked, this, &GripsDialog::savePdf);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(m_sheet, &GripsSheet::clicked, this,
          [this, choose = std::move(choose)](int grip) { m_sheet->setPage(choose(grip)); });
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(new QLabel(tr("A click on a grip at the left chooses another one.")));
  rows->addWidget(area, 1);
  rows->addWidget(buttons);
  resize(kSize);
}

void GripsDialog::print() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted)
    printPage(m_sheet->page(), font(), PageSheet::Parts::grips, printer);
}

void GripsDialog::savePdf() {
  Preferences preferences;
  const QString name = toText(fileNameOf(m_sheet->page().title + " grips")) + ".pdf";
  const QString file = QFileDialog::getSaveFileName(this, tr("Export as PDF"),
                                                    QDir(preferences.exportFolder()).filePath(name),
                                                    tr("PDF documents (*.pdf)"));
  if (file.isEmpty()) return;
  preferences.setExportFolder(QFileInfo(file).absolutePath());
  try {
    savePagePdf(m_sheet->page(), font(), PageSheet::Parts::grips, file.toStdString());
  } catch (const platform::FileError& problem) {
    QMessageBox::warning(this, windowTitle(), translated(problem));
  }
}

}  // namespace korvel::ui
