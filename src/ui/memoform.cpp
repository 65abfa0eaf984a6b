#include "ui/memoform.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "files/news.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

MemoForm::MemoForm(SessionController& controller, QWidget* parent)
    : QDialog(parent),
      controller_(controller),
      to_(new QLabel(this)),
      from_(new QLabel(this)),
      txtMemo_(new QPlainTextEdit(this)),
      memoNum_(new QLabel(this)),
      btnPrevious_(makeButton("BtnPrevious", "< Previous", this)),
      btnNext_(makeButton("BtnNext", "Next >", this)) {
    setObjectName("MemoForm");
    setWindowTitle("Memo");

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(16, 14, 16, 12);
    root->setSpacing(6);
    to_->setObjectName("To");
    from_->setObjectName("From");
    for (QLabel* l : {to_, from_}) {
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        root->addWidget(l);
    }
    txtMemo_->setObjectName("txtMemo");
    txtMemo_->setReadOnly(true);
    txtMemo_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    root->addWidget(txtMemo_, 1);

    auto* row = new QHBoxLayout;
    memoNum_->setObjectName("MemoNum");
    auto* close = makeButton("btnClose", "Close", this);
    row->addWidget(btnPrevious_);
    row->addWidget(memoNum_);
    row->addWidget(btnNext_);
    row->addStretch(1);
    row->addWidget(close);
    root->addLayout(row);

    connect(btnPrevious_, &QPushButton::clicked, this, [this] { showMemo(controller_.session().MemoShown - 1); });
    connect(btnNext_, &QPushButton::clicked, this, [this] { showMemo(controller_.session().MemoShown + 1); });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    resize(580, 230);
}

void MemoForm::showMemo(int n) {
    Session& session = controller_.session();
    const MemoView v = memoView(session.Memos, n);
    session.MemoShown = n;
    to_->setText(qs(v.To));
    from_->setText(qs(v.From));
    txtMemo_->setPlainText(qs(v.Text));
    memoNum_->setText(qs(v.Counter));
    btnPrevious_->setEnabled(v.PreviousOn);
    btnNext_->setEnabled(v.NextOn);
}

}  // namespace kestrin::ui
