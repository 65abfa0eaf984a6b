#pragma once
// Preferences: the manager's own settings (kestrin.ini). Every change is
// written at once and takes effect at once.
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/preferences.h"
#include "files/mail.h"
#include "ui/screen.h"

namespace kestrin::ui {

class Preferences : public Screen {
    Q_OBJECT
public:
    explicit Preferences(SessionController& controller, QWidget* parent = nullptr);

    // Nothing here belongs to one club.
    void fillClub() override {}
    // The controls are set from the new session's settings, and every screen
    // takes its background.
    void sessionLoaded() override;

    // Asks for a file: (title, starting folder, filter) -> path, empty when
    // cancelled. A file dialog unless replaced.
    using FilePicker = std::function<QString(const QString&, const QString&, const QString&)>;
    void setFilePicker(FilePicker picker) { pickFile_ = std::move(picker); }

protected:
    void enableForClubs(bool hasClubs) override;
    // A From File caption is cut to the room its button is given.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildBackgrounds();
    QWidget* buildGeneral();
    QWidget* buildTurnsheets();
    QWidget* buildFiles();
    QWidget* buildVidiprinter();
    QWidget* buildMail();

    void fillControls();
    void showPictureOption(size_t which);
    void fitFromFile(size_t which);
    void showFiles();
    // Stores a change and writes it; `apply` for the options that take effect
    // on the screens.
    void change(const std::function<void(Settings&)>& edit, bool apply);
    // Apply settings: every screen's background and the injury limit, then
    // (after a change) the lists refilled.
    void applyToScreens(bool refill);

    void pictureClicked(size_t which, int option);
    void injuryEdited(const QString& text);
    void browseFile(bool stats);
    void showMail();
    // Writes mail.ini with the change; a file that can't be written is told
    // once until a write succeeds again.
    void changeMail(const std::function<void(MailSettings&)>& edit);
    void securityChosen(int index);

    std::array<QButtonGroup*, kBackgroundOptions.size()> pictureGroups_{};
    std::array<QRadioButton*, kBackgroundOptions.size()> fromFile_{};
    QLineEdit* txtPhysio_;
    std::array<QButtonGroup*, kOptionPairs.size()> pairs_{};
    std::array<QCheckBox*, kYesNoOptions.size()> yesNo_{};
    std::array<QCheckBox*, kWatchOptionCount> watch_{};
    std::array<QComboBox*, 5> alerts_{};
    std::array<std::vector<std::string>, 5> alertLines_;  // each list's lines as the game words them
    QLineEdit* txtScoutFile_;
    QLineEdit* txtStatsFile_;
    FilePicker pickFile_;
    QLineEdit* txtMailServer_;
    QLineEdit* txtMailPort_;
    QComboBox* cboMailSecurity_;
    QLineEdit* txtMailUser_;
    QLineEdit* txtMailSender_;
    MailSettings mail_;
    bool mailWriteTold_ = false;
};

}  // namespace kestrin::ui
