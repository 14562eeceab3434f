// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvel::ui {

/// Names that recordings usually have.
QStringList soundFilePatterns();
/// Names that files of other programs have whose notes or chords can be imported. Plain texts are
/// only among them when asked for: most in a folder are no tablature.
QStringList pieceFilePatterns(bool withTexts);
/// What file dialogs offer where a recording is wanted.
QString soundFileFilter();
/// The same where anything is wanted that a song can be made of.
QString importFilter();

}  // namespace korvel::ui
