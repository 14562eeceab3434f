// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/JobRow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/desktop/Translated.h"
#include "workflow/session/QBCommand.h"

namespace korvel::ui {

JobRow::JobRow(QBCommand& job, QWidget* parent)
    : QWidget(parent),
      m_job(job),
      m_title(new QLabel(translated(job.fullTitle()))),
      m_progress(new QProgressBar),
      m_keep(new QPushButton(tr("Stop and keep"))),
      m_drop(new QPushButton(tr("Cancel and drop"))) {
  m_progress->setAccessibleName(tr("Progress of %1").arg(m_title->text()));
  m_keep->setAccessibleName(tr("Stop and keep %1").arg(m_title->text()));
  m_drop->setAccessibleName(tr("Cancel and drop %1").arg(m_title->text()));
  m_keep->setToolTip(tr("Ends the job now and keeps what it has made so far"));
  m_drop->setToolTip(tr("Ends the job now and removes what it has made"));
  connect(m_keep, &QPushButton::clicked, this, [this] {
    m_job.stopAndKeep();
    emit acted();
  });
  connect(m_drop, &QPushButton::clicked, this, [this] {
    m_job.cancelAndDrop();
    emit acted();
  });
  auto* column = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_title);
  column->addWidget(m_progress);
  column->addLayout(row);
  row->addWidget(m_keep);
  row->addWidget(m_drop);
  update();
}

bool JobRow::update() {
  const bool running = m_job.isRunning();
  m_progress->setValue(m_job.m_percent);
  m_progress->setEnabled(running);
  m_keep->setEnabled(running);
  m_drop->setEnabled(running || m_job.isPaused());
  return running;
}

}  // namespace korvel::ui
