#include <QButtonGroup>
#include <QDialog>
#include <QHBoxLayout>
#include "ui/widgets.h"

#include <QHBoxLayout>

#include "ui/look.h"

namespace kestrin::ui {

FigureRow::FigureRow(const QString& objectName, QWidget* parent)
    : QWidget(parent), caption_(new QLabel(this)), value_(new QLabel(this)) {
    setObjectName(objectName);
    auto* lay = new QHBoxLayout(this);
    lay->setContentsMargins(0, 1, 0, 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    lay->addWidget(caption_);
    lay->addStretch(1);
    lay->addWidget(value_);
    value_->setFont(fixedFont());
    value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value_->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void FigureRow::setPlainValue() { value_->setFont(font()); }

void FigureRow::setTexts(const QString& caption, const QString& value) {
    caption_->setText(caption);
    value_->setText(value);
}

OkCancel makeOkCancel(QDialog* dialog) {
    OkCancel b{new QHBoxLayout, makeButton("OKButton", "OK", dialog), makeButton("CancelButton", "Cancel", dialog)};
    b.ok->setDefault(true);
    b.row->addStretch(1);
    b.row->addWidget(b.ok);
    b.row->addWidget(b.cancel);
    QObject::connect(b.cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    return b;
}

QPushButton* addCloseRow(QDialog* dialog, QBoxLayout* root, const QString& objectName) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    auto* close = makeButton(objectName, "Close", dialog);
    row->addWidget(close);
    root->addLayout(row);
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::close);
    return close;
}

QButtonGroup* filterButtons(QWidget* parent, QHBoxLayout* row, const QString& name, const QStringList& captions) {
    auto* group = new QButtonGroup(parent);
    group->setObjectName(name);
    group->setExclusive(true);
    for (int id = 0; id < captions.size(); ++id) {
        auto* b = makeButton(name + QString::number(id), captions[id], parent);
        b->setCheckable(true);
        b->setChecked(id == 0);
        group->addButton(b, id);
        row->addWidget(b);
    }
    return group;
}

QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(objectName);
    return b;
}

void markComingSoon(QPushButton* button, const QString& what) {
    button->setEnabled(false);
    button->setToolTip("Coming soon: " + what);
    button->setProperty("comingSoon", true);
}

}  // namespace kestrin::ui
