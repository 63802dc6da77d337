#include "desktop/documents/StockDocumentDialog.h"

#include <QApplication>
#include <utility>

#include "desktop/documents/DocumentWindow.h"

namespace koru {

void ShowInDialog(OpenedDocument opened) {
  DocumentWindow window(opened.database, opened.kind, opened.messages, std::move(opened.document),
                        QApplication::activeWindow());
  window.exec();
}

}  // namespace koru
