#pragma once

class QApplication;

namespace koru {

/// Sets what all windows share: right-to-left layout, Persian texts for the buttons of Qt's own dialogs, font
/// and colours. Must be called once, before the first window is created.
void SetUpApplication(QApplication& application);

}  // namespace koru
