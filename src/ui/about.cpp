#include "ui/about.h"

#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <SQLiteCpp/SQLiteCpp.h>
#include <curl/curl.h>
#include <sqlite3.h>
#include <zip.h>
#include <vector>
#include <zlib.h>

#include "kestrin_version.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

struct LibraryInfo {
    QString name;
    QString version;
    QString licence;
};

std::vector<LibraryInfo> linkedLibraries() {
    // The versions of shared libraries are those loaded now, not those built against.
    return {
        {"Qt", qVersion(), "LGPL-3.0-only"},
        {"SQLite", sqlite3_libversion(), "Public domain"},
        {"SQLiteCpp", SQLITECPP_VERSION, "MIT"},
        {"zlib", zlibVersion(), "Zlib"},
        {"libzip", zip_libzip_version(), "BSD-3-Clause"},
        {"libcurl", curl_version_info(CURLVERSION_NOW)->version, "curl"},
        {"QtKeychain", kKeychainLibraryVersion, "BSD-3-Clause"},
        {"nlohmann JSON", kJsonLibraryVersion, "MIT"},
    };
}

}  // namespace

QIcon programIcon() {
    QIcon builtIn;
    for (const char* size : {"64x64", "256x256"})
        builtIn.addFile(QString(":/icons/%1/org.kestrin.Kestrin.png").arg(size));
    return QIcon::fromTheme("org.kestrin.Kestrin", builtIn);
}

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setObjectName("About");
    setWindowTitle("About Kestrin");
    auto* root = new QVBoxLayout(this);

    auto* head = new QHBoxLayout;
    auto* icon = new QLabel(this);
    icon->setPixmap(programIcon().pixmap(64, 64));
    head->addWidget(icon);
    auto* title = new QLabel(this);
    title->setObjectName("lblVersion");
    title->setTextFormat(Qt::RichText);
    title->setText(QString("<h2>Kestrin %1</h2>"
                           "<p>The manager's program of a football league played by e-mail.</p>"
                           "<p>Free software under the GNU General Public License, version 3 or later.</p>")
                       .arg(kVersion));
    title->setWordWrap(true);
    head->addWidget(title, 1);
    root->addLayout(head);

    root->addWidget(new QLabel("Kestrin is built on these open-source libraries:", this));
    const std::vector<LibraryInfo> libs = linkedLibraries();
    auto* table = new QTableWidget(int(libs.size()), 3, this);
    table->setObjectName("tblLibraries");
    table->setHorizontalHeaderLabels({"Library", "Version", "Licence"});
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    for (int r = 0; r < int(libs.size()); ++r) {
        const LibraryInfo& l = libs[size_t(r)];
        int c = 0;
        for (const QString& cell : {l.name, l.version, l.licence}) table->setItem(r, c++, new QTableWidgetItem(cell));
    }
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    root->addWidget(table);
    addCloseRow(this, root);
    resize(520, 420);
}

}  // namespace kestrin::ui
