#pragma once

#include "ui/SavePanel.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <optional>
#include <string>

namespace veridane::ui {

/// The desktop's own save dialog where it has one, else the toolkit's.
class FileDialogSavePanel : public SavePanel {
public:
    /// The window that waits for the answer.
    void setWindow(QWidget* window) { m_window = window; }

    /// Starts in the folder that was last saved to, at first in that of the user's documents.
    /// Folders can be made, all files are shown, and a file that exists is asked about.
    [[nodiscard]] std::optional<std::string> chooseFile(const std::string& proposedName) override;

private:
    QPointer<QWidget> m_window;
    QString m_folder;
};

} // namespace veridane::ui
