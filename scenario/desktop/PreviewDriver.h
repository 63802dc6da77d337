#pragma once

#include "desktop/report/ReportPreview.h"

class QFileDialog;

namespace koru {

/// The preview that the person looks at; nullptr when none is open.
[[nodiscard]] ReportPreview* PreviewInFront();

/// Gives the preview the keyboard and presses a key there.
void PressIn(ReportPreview& preview, int key, Qt::KeyboardModifiers held = Qt::NoModifier);

/// Types the name of a file into the window that asks for one, and takes it.
void NameFile(QFileDialog& dialog, const QString& file);

}  // namespace koru
