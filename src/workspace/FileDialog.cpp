#include "workspace/FileDialog.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>

namespace pulselark {

QString RunFileDialog(QFileDialog& dialog) {
    constexpr QSize Room(860, 520);
    if (const auto* list = dialog.findChild<QTreeView*>("treeView")) {
        QHeaderView* header = list->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->setSectionResizeMode(0, QHeaderView::Stretch); // the name
        dialog.resize(Room);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace pulselark
