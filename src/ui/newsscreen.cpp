#include "ui/newsscreen.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/errors.h"
#include "core/loader.h"
#include "files/news.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

enum Column { Title, File };
// The file's name as the folder holds it, whatever the screen makes of it.
constexpr int kFileRole = Qt::UserRole;

}  // namespace

NewsScreen::NewsScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "News", "News", parent),
      lvwNewsFiles_(new QTreeWidget(this)),
      newsText_(new QPlainTextEdit(this)),
      txtReading_(new QLabel("Reading the news item...", this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("News");
    header->addStretch(1);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    header->addWidget(back);
    root->addLayout(header);

    auto* body = new QHBoxLayout;
    body->setSpacing(10);
    lvwNewsFiles_->setObjectName("lvwNewsFiles");
    lvwNewsFiles_->setColumnCount(2);
    lvwNewsFiles_->setHeaderLabels({"Weekly News Item", ""});
    lvwNewsFiles_->setColumnHidden(File, true);
    lvwNewsFiles_->setRootIsDecorated(false);
    lvwNewsFiles_->setUniformRowHeights(true);
    lvwNewsFiles_->setAlternatingRowColors(true);
    lvwNewsFiles_->setSelectionMode(QAbstractItemView::SingleSelection);
    lvwNewsFiles_->setTextElideMode(Qt::ElideRight);
    connect(lvwNewsFiles_, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { showItem(lvwNewsFiles_->indexOfTopLevelItem(item)); });
    body->addWidget(lvwNewsFiles_);

    auto* right = new QVBoxLayout;
    right->setSpacing(4);
    newsText_->setObjectName("NewsText");
    newsText_->setReadOnly(true);
    newsText_->setLineWrapMode(QPlainTextEdit::NoWrap);
    newsText_->setFont(fixedFont(-1));
    newsText_->setPlaceholderText("Click a news item to read it.");
    right->addWidget(newsText_, 1);
    txtReading_->setObjectName("txtReading");
    txtReading_->hide();
    right->addWidget(txtReading_);
    body->addLayout(right, 1);
    root->addLayout(body, 1);
}

void NewsScreen::sessionLoaded() {
    Screen::sessionLoaded();
    lvwNewsFiles_->clear();
    newsText_->clear();
    for (const NewsItem& n : controller_.session().News) {
        auto* item = new QTreeWidgetItem(lvwNewsFiles_, {qs(n.Title), qpath(n.File)});
        item->setData(File, kFileRole, QByteArray::fromStdString(n.File));
        item->setToolTip(Title, qs(n.Title));
    }
    // Wide enough for the week's titles, within reason; the text takes the rest.
    lvwNewsFiles_->resizeColumnToContents(Title);
    lvwNewsFiles_->setFixedWidth(std::clamp(lvwNewsFiles_->columnWidth(Title) + 24, 280, 560));
}

void NewsScreen::showItem(int row) {
    QTreeWidgetItem* item = lvwNewsFiles_->topLevelItem(row);
    if (!item) return;
    lvwNewsFiles_->setCurrentItem(item);
    const std::string file = item->data(File, kFileRole).toByteArray().toStdString();
    newsText_->clear();
    txtReading_->show();
    txtReading_->repaint();
    try {
        QString text = qs(newsText(controller_.session().Folder, file));
        if (text.endsWith('\n')) text.chop(1);
        newsText_->setPlainText(text);
    } catch (const GameFileError& e) {
        controller_.messages().warn("News item could not be read",
                                    unreadableFileText("news file", e,
                                                       "The other news items can still be read. Load the week's "
                                                       "archives again (Load Turn) to restore the file."));
    }
    txtReading_->hide();
}

}  // namespace kestrin::ui
