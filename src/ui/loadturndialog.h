#pragma once
// LoadTurn: the manager names the two archives of the new week; OK loads
// them and shows the new week on every screen.
#include <QButtonGroup>
#include <QDialog>
#include <QLineEdit>
#include <functional>

#include "files/loadturnform.h"

namespace kestrin::ui {

class SessionController;

class LoadTurnDialog : public QDialog {
    Q_OBJECT
public:
    // The paths and backup options are taken from the settings.
    LoadTurnDialog(SessionController& controller, QWidget* parent = nullptr);

    // Opens a dialog over `parent`, modal to it and deleted once closed.
    static LoadTurnDialog* openOver(QWidget* parent, SessionController& controller);

    // Asks for an archive: (title, starting folder, filter) -> path, empty
    // when cancelled. A file dialog unless replaced.
    using FilePicker = std::function<QString(const QString&, const QString&, const QString&)>;
    void setFilePicker(FilePicker picker) { pickFile_ = std::move(picker); }

private:
    QWidget* buildArchiveRow(TurnArchive which);
    void browse(TurnArchive which);
    void okClicked();

    SessionController& controller_;
    QLineEdit* txtSquadFile_;
    QLineEdit* txtWeekFile_;
    QButtonGroup* btnSqBackup_;
    QButtonGroup* btnWkBackup_;
    FilePicker pickFile_;
};

}  // namespace kestrin::ui
