#pragma once

class QApplication;

namespace koru {

/// What all windows have in common: right to left, Persian texts for the buttons of the toolkit's own
/// dialogs, font, colours. To be called once, before the first window is made.
void SetUpApplication(QApplication& application);

}  // namespace koru
