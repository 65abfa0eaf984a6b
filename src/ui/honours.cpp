#include "ui/honours.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "stats/honours.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

HonoursDialog::HonoursDialog(QWidget* parent) : QDialog(parent), list_(new QTreeWidget(this)) {
    setObjectName("Honours");
    setModal(true);
    resize(760, 420);
}

HonoursDialog* HonoursDialog::create(QWidget* parent, SessionController& controller) {
    const Club* club = controller.session().current();
    if (!club) return nullptr;
    const std::optional<stats::Honours> honours =
        stats::clubHonours(controller.session().Prefs, club->Name, controller.messages());
    if (!honours) return nullptr;

    auto* d = new HonoursDialog(parent);
    d->setWindowTitle(qs(honours->Title));
    auto* root = new QVBoxLayout(d);
    root->setContentsMargins(14, 12, 14, 12);
    auto* heading = new QLabel(qs(honours->Title), d);
    heading->setObjectName("screenHeading");
    root->addWidget(heading);

    QTreeWidget* list = d->list_;
    list->setObjectName("lvwHonours");
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setUniformRowHeights(true);
    QStringList heads;
    const auto& columns = stats::honoursColumns();
    for (const stats::HonoursColumn& c : columns) heads << qs(c.heading);
    list->setHeaderLabels(heads);
    // The game's widths are in its own small units; a twelfth of one is a pixel
    // with room for this font.
    for (int i = 0; i < int(columns.size()); ++i) {
        list->setColumnWidth(i, columns[size_t(i)].width / 12);
        if (columns[size_t(i)].width == 0) list->setColumnHidden(i, true);
    }
    for (const stats::HonoursRow& r : honours->Rows) {
        auto* item = new QTreeWidgetItem(list);
        const QStringList texts{QString(), qs(r.Date), qs(r.Competition), qs(r.Finish), qs(r.Points),
                                qs(r.Champions), qs(r.ChampionsPoints)};
        for (int i = 0; i < texts.size() && i < int(columns.size()); ++i) item->setText(i, texts[i]);
    }
    root->addWidget(list, 1);

    addCloseRow(d, root, "CancelButton");
    return d;
}

HonoursDialog* HonoursDialog::openOver(QWidget* parent, SessionController& controller) {
    return openModal(create(parent, controller));
}

}  // namespace kestrin::ui
