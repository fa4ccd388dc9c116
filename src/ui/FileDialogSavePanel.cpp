#include "ui/FileDialogSavePanel.h"

#include "ui/Text.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace veridane::ui {

std::optional<std::string> FileDialogSavePanel::chooseFile(const std::string& proposedName) {
    if (!QFileInfo(m_folder).isDir())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(m_folder).isDir())
        m_folder = QDir::homePath();
    QFileDialog dialog(m_window);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setDirectory(m_folder);
    dialog.selectFile(toQString(proposedName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString file = dialog.selectedFiles().constFirst();
    m_folder = QFileInfo(file).absolutePath();
    return QFile::encodeName(file).toStdString();
}

} // namespace veridane::ui
