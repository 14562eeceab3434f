// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/SettingsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QVBoxLayout>

#include "analysis/HearingSettings.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/sound/AudioSystem.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/hearing/HearingChoice.h"
#include "workflow/hearing/Detection.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::ui {
namespace {

constexpr int kLettersOfPath = 36;

/// A line with a button behind it that chooses what goes there.
QWidget* withButton(QLineEdit* line, const QString& name, const std::function<QString()>& choose) {
  auto* button = new QPushButton(SettingsDialog::tr("Choose ..."));
  line->setAccessibleName(name);
  line->setMinimumWidth(kLettersOfPath * line->fontMetrics().averageCharWidth());
  button->setAccessibleName(SettingsDialog::tr("Choose: %1").arg(name));
  QObject::connect(button, &QPushButton::clicked, line, [line, choose] {
    const QString chosen = choose();
    if (!chosen.isEmpty()) line->setText(chosen);
  });
  auto* both = new QWidget;
  auto* row = new QHBoxLayout(both);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(line);
  row->addWidget(button);
  both->setFocusProxy(line);
  return both;
}

QComboBox* choiceOf(const QList<QPair<QString, QVariant>>& items, const QVariant& chosen) {
  auto* box = new QComboBox;
  for (const auto& [text, value] : items) box->addItem(text, value);
  box->setCurrentIndex(std::max(0, box->findData(chosen)));
  return box;
}

QString nameOf(const Detection& detection) { return toText(detection.name); }

QComboBox* choiceOfDetections(const Detection& chosen) {
  QList<QPair<QString, QVariant>> items;
  for (const Detection* each : detections()) items.append({translated(each->title), nameOf(*each)});
  return choiceOf(items, nameOf(chosen));
}

/// The device that was chosen stays offered while it is unplugged.
QComboBox* devices(std::vector<std::string> (platform::AudioSystem::*list)(),
                   const QString& chosen) {
  auto* box = new QComboBox;
  try {
    for (const std::string& name : (platform::AudioSystem::main().*list)())
      box->addItem(toText(name));
  } catch (const platform::AudioError& problem) {
    box->setToolTip(translated(problem));
    box->addItem(toText(platform::AudioSystem::kSystemDefault));
  }
  box->setItemText(0, translated(platform::AudioSystem::kDefaultDevice));
  if (!chosen.isEmpty() && box->findText(chosen) < 0) box->addItem(chosen);
  box->setCurrentIndex(std::max(0, box->findText(chosen)));
  return box;
}

QString deviceOf(const QComboBox& box) {
  return box.currentIndex() == 0 ? QString() : box.currentText();
}

/// As a user means what was typed: "~" and names without a folder before them are of the home
/// folder.
QString inHome(const QString& path) {
  if (path.startsWith("~/")) return QDir::home().filePath(path.mid(2));
  return path.isEmpty() ? path : QDir::home().absoluteFilePath(path);
}

}  // namespace

QString offeredWorkFolder() {
  return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
      .filePath("Korvel");
}

SettingsDialog::SettingsDialog(QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Settings"));
  m_pages = new QTabWidget;
  m_pages->setAccessibleName(windowTitle());
  m_pages->addTab(generalPage(), tr("&General"));
  m_pages->addTab(detectionPage(), tr("&Import"));
  m_pages->addTab(soundPage(), tr("&Sound"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(m_pages);
  column->addWidget(buttons);
}

void SettingsDialog::showPage(const char* name) {
  m_pages->setCurrentWidget(m_pages->findChild<QWidget*>(name));
}

QWidget* SettingsDialog::generalPage() {
  const Preferences preferences;
  m_folder = new QLineEdit(toText(QBTabMgr::db().selectedSettings()->workDir()));
  m_language = choiceOf({{tr("As the desktop"), ""}, {"English", "en"}, {"Deutsch", "de"}},
                        preferences.language());
  m_theme = choiceOf({{tr("As the desktop"), static_cast<int>(Theme::system)},
                      {tr("Light"), static_cast<int>(Theme::light)},
                      {tr("Dark"), static_cast<int>(Theme::dark)}},
                     static_cast<int>(preferences.theme()));
  m_ownFont = new QCheckBox(tr("Tablature in a &font of its own"));
  m_font = new QFontComboBox;
  m_font->setFontFilters(QFontComboBox::MonospacedFonts);
  m_font->setAccessibleName(tr("Font of the tablature"));
  m_font->lineEdit()->setAccessibleName(m_font->accessibleName());
  m_ownFont->setChecked(!preferences.tabFont().isEmpty());
  m_font->setEnabled(m_ownFont->isChecked());
  if (m_ownFont->isChecked()) m_font->setCurrentFont(preferences.tabFont());
  connect(m_ownFont, &QCheckBox::toggled, m_font, &QWidget::setEnabled);
  auto* page = new QWidget;
  page->setObjectName("general");
  auto* form = new QFormLayout(page);
  form->addRow(tr("&Working directory"), withButton(m_folder, tr("Working directory"), [this] {
                 return QFileDialog::getExistingDirectory(this, tr("Working directory"),
                                                          offeredWorkFolder());
               }));
  form->addRow(tr("&Language"), m_language);
  form->addRow(tr("&Theme"), m_theme);
  form->addRow(m_ownFont, m_font);
  return page;
}

QWidget* SettingsDialog::detectionPage() {
  const Preferences preferences;
  const HearingSettings settings = preferences.detectionSettings();
  m_detection = choiceOfDetections(preferences.detection());
  m_grid = choiceOf({{tr("Bars, at the tempo of the recording"), static_cast<int>(Grid::beats)},
                     {tr("Slices of 0.37 seconds"), static_cast<int>(Grid::slices)}},
                    static_cast<int>(settings.grid));
  m_players = choiceOf({{tr("One guitar: its notes"), static_cast<int>(Players::guitar)},
                        {tr("A band: its chords"), static_cast<int>(Players::band)},
                        {tr("Decide for each recording"), static_cast<int>(Players::automatic)}},
                       static_cast<int>(settings.players));
  m_players->setToolTip(tr("Chords are written in bars, and heard by the precise detection only"));
  m_voices = choiceOf({{tr("None"), ""},
                       {tr("Melody"), "melody"},
                       {tr("Bass"), "bass"},
                       {tr("Melody and bass"), "melody,bass"}},
                      QString::fromStdString(chords::namesOf(settings.voices)));
  m_voices->setToolTip(
      tr("Each becomes a song beside that of the chords, where it is clear enough"));
  auto* page = new QWidget;
  page->setObjectName("detection");
  auto* form = new QFormLayout(page);
  form->addRow(tr("&Detection"), m_detection);
  form->addRow(tr("What plays"), m_players);
  form->addRow(tr("Voices of a band"), m_voices);
  form->addRow(tr("&Written in"), m_grid);
  m_hearing = new HearingChoice(*form, settings);
  m_hearing->addConcertPitch(*form, settings.concertA);
  m_keep = new QCheckBox(tr("&Keep copies of recordings with the songs"));
  m_keep->setChecked(preferences.keepsRecordings());
  form->addRow(m_keep);
  return page;
}

QWidget* SettingsDialog::soundPage() {
  const Preferences preferences;
  m_output = devices(&platform::AudioSystem::outputs, preferences.output());
  m_input = devices(&platform::AudioSystem::inputs, preferences.input());
  m_soundFont = new QLineEdit(preferences.soundFont());
  m_soundFont->setPlaceholderText(tr("One that the system has"));
  auto* page = new QWidget;
  page->setObjectName("sound");
  auto* form = new QFormLayout(page);
  form->addRow(tr("&Play on"), m_output);
  form->addRow(tr("&Record from"), m_input);
  form->addRow(tr("Sound&Font"), withButton(m_soundFont, tr("SoundFont"), [this] {
                 return QFileDialog::getOpenFileName(this, tr("SoundFont"), QString(),
                                                     tr("SoundFonts (*.sf2 *.sf3)"));
               }));
  return page;
}

void SettingsDialog::keepDetection() const {
  HearingSettings settings{m_hearing->settings()};
  settings.players = static_cast<Players>(m_players->currentData().toInt());
  settings.voices = chords::voicesNamed(m_voices->currentData().toString().toStdString())
                        .value_or(settings.voices);
  settings.grid = static_cast<Grid>(m_grid->currentData().toInt());
  const std::string detection = m_detection->currentData().toString().toStdString();
  Preferences().setDetection(*detectionNamed(detection), settings);
  if (Preferences().keepsRecordings() != m_keep->isChecked())
    Preferences().setKeepsRecordings(m_keep->isChecked());
}

void SettingsDialog::accept() {
  const std::string& before = QBTabMgr::db().selectedSettings()->workDir();
  try {
    if (m_folder->text() != toText(before))
      setWorkDirectory(inHome(m_folder->text()).toStdString());
  } catch (const platform::UserError& problem) {
    QMessageBox::warning(this, windowTitle(), translated(problem));
    return;
  }
  Preferences preferences;
  preferences.setLanguage(m_language->currentData().toString());
  preferences.setTheme(static_cast<Theme>(m_theme->currentData().toInt()));
  preferences.setTabFont(m_ownFont->isChecked() ? m_font->currentFont().family() : QString());
  preferences.setOutput(deviceOf(*m_output));
  preferences.setInput(deviceOf(*m_input));
  preferences.setSoundFont(inHome(m_soundFont->text()));
  keepDetection();
  QDialog::accept();
}

}  // namespace korvel::ui
