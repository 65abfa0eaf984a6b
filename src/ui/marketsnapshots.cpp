// The transfer market's screens drawn as a manager sees them mid-week, for
// the snapshot folder.
#include <QComboBox>
#include <QCoreApplication>
#include <QListWidget>
#include <cstdio>

#include "ui/comparedialog.h"
#include "ui/mainwindow.h"
#include "ui/qtext.h"
#include "ui/rowstable.h"
#include "ui/scout.h"
#include "ui/searchresults.h"
#include "ui/sessioncontroller.h"
#include "ui/snapshot.h"
#include "ui/squadscreen.h"

namespace kestrin::ui {

int renderMarketSnapshots(MainWindow& window, SessionController& controller, const std::filesystem::path& outDir) {
    int failures = 0;
    auto save = [&](QWidget& w, const std::string& name) { failures += !savePicture(w, outDir / name); };
    auto* scout = qobject_cast<ScoutScreen*>(window.screen("Scout"));
    auto* search = qobject_cast<SearchResults*>(window.screen("SearchResults"));
    if (!scout || !search || controller.session().ExportClubs.size() < 2) {
        std::fprintf(stderr, "kestrin: no clubs to scout: Scout.png drawn empty\n");
        return failures;
    }

    // A club of the game and one of its players, with his face.
    window.showScreen("Scout");
    scout->clubs()->setCurrentRow(1);
    scout->players()->selectRow(2);
    save(window, "Scout.png");

    // Midfielders of some skill, the first of them chosen.
    search->seedIfEmpty();
    window.showScreen("SearchResults");
    search->findChild<QComboBox*>("ComboPos")->setCurrentText("Any Midfielder");
    search->findChild<QComboBox*>("ComboSkill")->setCurrentText("77 to 87");
    search->search();
    search->results()->selectRow(0);
    save(window, "SearchResults.png");

    window.showScreen("ScoutHistory");
    save(window, "ScoutHistory.png");

    // The squad's second player against the first scouted player and a team-mate.
    if (auto* squad = qobject_cast<SquadScreen*>(window.screen("SquadScr"))) {
        window.showScreen("SquadScr");
        squad->grid()->setCurrentCell(1, 0);
        if (CompareDialog* compare = CompareDialog::create(&window, controller, squad->currentRowText())) {
            QListWidget* candidates = compare->candidates();
            const int last = candidates->count() - 1;
            for (int row : {0, last / 2, last}) {
                candidates->setCurrentRow(row);
                compare->add();
            }
            compare->compare();
            compare->resize(900, 600);
            compare->setAttribute(Qt::WA_DontShowOnScreen);
            compare->show();
            save(*compare, "Compare.png");
            delete compare;
        }
    }
    window.showScreen("MainMenu");
    return failures;
}

}  // namespace kestrin::ui
