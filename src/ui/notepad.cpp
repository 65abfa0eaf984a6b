#include "ui/notepad.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/errors.h"
#include "core/loader.h"
#include "files/news.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

Notepad::Notepad(SessionController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller), txtNotes_(new QPlainTextEdit(this)) {
    setObjectName("Notepad");
    setWindowTitle("Manager's notepad");

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 10);
    root->setSpacing(6);
    auto* hint = new QLabel("Your own notes, kept from week to week. Every change is saved as you type.", this);
    hint->setWordWrap(true);
    root->addWidget(hint);
    txtNotes_->setObjectName("txtNotes");
    txtNotes_->setFont(fixedFont());
    txtNotes_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    root->addWidget(txtNotes_, 1);

    addCloseRow(this, root);
    connect(txtNotes_, &QPlainTextEdit::textChanged, this, &Notepad::changed);
    resize(620, 460);
}

void Notepad::reload() {
    const GameFolder& folder = controller_.session().Folder;
    failTold_ = false;
    try {
        fill(qs(readNotepad(folder)));
    } catch (const GameFileError& e) {
        fill({});
        controller_.messages().warn("Notes could not be read",
                                    unreadableFileText("notepad", e,
                                                       "The notepad opens empty, and the file is left as it is "
                                                       "until you type. Check that the file can be read."));
    }
}

void Notepad::fill(const QString& text) {
    Session& session = controller_.session();
    const bool wasFilling = session.FillingScreen;
    session.FillingScreen = true;
    txtNotes_->setPlainText(text);
    session.FillingScreen = wasFilling;
}

void Notepad::changed() {
    Session& session = controller_.session();
    if (session.FillingScreen) return;
    QString text = txtNotes_->toPlainText();
    text.replace('\n', QLatin1String("\r\n"));
    try {
        writeNotepad(session.Folder, gameText(text));
        failTold_ = false;
    } catch (const WriteError& e) {
        if (failTold_) return;
        failTold_ = true;
        controller_.messages().warn("Notes not saved",
                                    "The notepad " + utf8ToCp1252(e.path) + " could not be written: " + e.reason +
                                        ".\r\n\r\nThe file keeps the notes as they were before. What you type is "
                                        "saved again at your next change once the game folder can be written to.");
    }
}

}  // namespace kestrin::ui
