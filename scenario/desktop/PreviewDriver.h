#pragma once

#include "desktop/report/ReportPreview.h"

class QFileDialog;

namespace koru {

/// The active preview, or any open one; nullptr when none is open.
[[nodiscard]] ReportPreview* PreviewInFront();

/// Gives the preview the focus and presses a key.
void PressIn(ReportPreview& preview, int key, Qt::KeyboardModifiers held = Qt::NoModifier);

/// Types the name of a file into a file dialog and accepts it.
void NameFile(QFileDialog& dialog, const QString& file);

}  // namespace koru
