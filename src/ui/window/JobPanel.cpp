// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/JobPanel.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/window/JobRow.h"
#include "workflow/session/QBCommand.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

constexpr auto kUpdateInterval = 200ms;

bool isListed(const QBCommand& job) {
  const QBSession& session = QBSession::session();
  for (std::size_t i = 0; i < session.numberOfCurrentJobs(); ++i)
    if (&session.findJobByIndex(i) == &job) return true;
  return false;
}

bool isOver(const QBCommand& job) { return !job.isRunning() && !job.isPaused(); }

}  // namespace

JobPanel::JobPanel(QWidget* parent)
    : QScrollArea(parent), m_clear(new QPushButton(tr("Clear Finished Jobs"))) {
  auto* content = new QWidget;
  m_rows = new QVBoxLayout(content);
  m_rows->setContentsMargins(0, 0, 0, 0);
  m_rows->addWidget(m_clear, 0, Qt::AlignLeft);
  m_rows->addStretch();
  m_clear->setEnabled(false);
  connect(m_clear, &QPushButton::clicked, this, &JobPanel::clear);
  setWidget(content);
  setWidgetResizable(true);
  setAccessibleName(tr("Jobs"));
  m_clock.setInterval(kUpdateInterval);
  connect(&m_clock, &QTimer::timeout, this, &JobPanel::update);
}

JobPanel::~JobPanel() = default;

void JobPanel::reload() {
  std::erase_if(m_jobs, [](JobRow* row) {
    const bool gone = !isListed(row->job());
    if (gone) delete row;
    return gone;
  });
  const QBSession& session = QBSession::session();
  for (std::size_t i = m_jobs.size(); i < session.numberOfCurrentJobs(); ++i) {
    m_jobs.push_back(new JobRow(session.findJobByIndex(i)));
    m_rows->insertWidget(1, m_jobs.back());  // below the button
    connect(m_jobs.back(), &JobRow::acted, this, &JobPanel::update);
    emit jobAdded();
  }
  m_clock.start();
  QTimer::singleShot(0, this, &JobPanel::update);  // a job is listed before it runs
}

void JobPanel::update() {
  const auto running = std::ranges::count_if(m_jobs, [](JobRow* row) { return row->update(); });
  if (running == 0) m_clock.stop();
  m_clear->setEnabled(std::ranges::any_of(m_jobs, [](JobRow* row) { return isOver(row->job()); }));
  if (std::exchange(m_running, running) != running) emit runningChanged();
}

void JobPanel::clear() {
  QBSession& session = QBSession::session();
  for (std::size_t i = session.numberOfCurrentJobs(); i-- > 0;) {
    const QBCommand& job = session.findJobByIndex(i);
    if (isOver(job)) session.removeJob(job);
  }
}

}  // namespace korvel::ui
