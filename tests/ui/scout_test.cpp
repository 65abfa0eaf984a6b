// The transfer market through its screens: a bid made on Scout shows on both
// screens' lists and in the saved Turnsheet, and goes again when removed; a
// player scouted before asks first; the search finds and bids the same way.
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QtTest>

#include "core/gamefolder.h"
#include "orders/scoutfile.h"
#include "orders/orderresult.h"
#include "ui/comparedialog.h"
#include "ui/faceview.h"
#include "ui/qtext.h"
#include "ui/rowstable.h"
#include "ui/scout.h"
#include "ui/searchresults.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;
using ui::gameText;

namespace {

constexpr int kClub = 2;  // the demo's third club has no orders of its own

// The value line after each line `label` of a saved Turnsheet.
std::vector<std::string> valuesOf(const std::vector<std::string>& sheet, const std::string& label) {
    std::vector<std::string> out;
    for (size_t i = 0; i + 1 < sheet.size(); ++i)
        if (sheet[i] == label) out.push_back(sheet[i + 1]);
    return out;
}

struct Market {
    UiGame g;
    ui::ScoutScreen* scout = nullptr;

    Market() { show(); }

    void show() {
        g.button("MainMenu", "BtnScouting")->click();
        scout = static_cast<ui::ScoutScreen*>(g.window->screen("Scout"));
        QCOMPARE(g.window->currentScreen(), static_cast<ui::Screen*>(scout));
        g.teamList("Scout")->setCurrentIndex(kClub);
    }
    // The export club `club` chosen on the left, then its player `row` (in the
    // list's own order): his cells.
    std::vector<std::string> pick(int club, int row) {
        scout->clubs()->setCurrentRow(club);
        scout->players()->selectRow(row);
        return scout->players()->currentCells();
    }
    QListWidget* list(const char* screen, const char* name) { return g.on<QListWidget>(screen, name); }
    std::vector<std::string> saved() {
        g.button("Scout", "Command2")->click();
        return splitLines(g.dir.read("Turnsheet/" + g.session().Clubs[kClub].ClubFile + ".txt"));
    }
};

}  // namespace

class ScoutTest : public QObject {
    Q_OBJECT
private slots:
    void bidShowsOnBothScreensAndInTheTurnsheet();
    void scoutedBeforeAsksAndNoStops();
    void searchFindsByNameAndBids();
    void skillComparisonFromTheSquad();
};

void ScoutTest::bidShowsOnBothScreensAndInTheTurnsheet() {
    Market m;
    const std::vector<std::string> before = m.saved();
    const std::vector<std::string> cells = m.pick(4, 0);
    QCOMPARE(int(cells.size()), 21);
    const std::string club(m.g.session().ExportClubs[4].Name);
    const std::string name = cells[0];
    const std::string minimum = trim(cells[2]);
    // The row's minimum is the amount, and the face is his.
    QCOMPARE(m.g.on<QLineEdit>("Scout", "txtBidAmount")->text(), q(minimum));
    QVERIFY(!m.scout->face()->face().isNull());

    m.g.messages.entries.clear();
    m.g.button("Scout", "cmdBid")->click();
    for (const auto& e : m.g.messages.entries) QCOMPARE(e.kind, RecordingMessages::Kind::Warn);
    const QString line = q(club + " - " + name + " Fee " + minimum + ", Contract 12, Incentive 0");
    QCOMPARE(itemsOf(m.list("Scout", "lstBidPlayers")), QStringList{line});
    QCOMPARE(itemsOf(m.list("SearchResults", "lstBidPlayers")), QStringList{line});

    // The first free slot of the six holds the bid; nothing else moved.
    const std::vector<std::string> after = m.saved();
    QCOMPARE(after.size(), before.size());
    QCOMPARE(valuesOf(after, "PlayerMove:").at(0), std::string(" 1 "));
    QCOMPARE(valuesOf(after, "PlayerMovement:").at(0), name);
    QCOMPARE(valuesOf(after, "PlayerClubMovement:").at(0), club);
    QCOMPARE(valuesOf(after, "PlayerFeeMovement:").at(0), " " + minimum + " ");
    QCOMPARE(valuesOf(after, "PlayerContractsMovement:").at(0), std::string(" 12 "));
    size_t changed = 0;
    for (size_t i = 0; i < after.size(); ++i) changed += after[i] != before[i];
    QVERIFY(changed >= 4 && changed <= 6);

    // Removed from the search screen's list: both lists empty, the slot free.
    QListWidget* searchList = m.list("SearchResults", "lstBidPlayers");
    searchList->setCurrentRow(0);
    m.g.button("SearchResults", "cmdRemoveBid")->click();
    QVERIFY(itemsOf(m.list("Scout", "lstBidPlayers")).isEmpty());
    QVERIFY(itemsOf(searchList).isEmpty());
    QCOMPARE(valuesOf(m.saved(), "PlayerMove:").at(0), std::string(" 0 "));

    // Nothing selected: the refusal and its words.
    m.g.messages.entries.clear();
    m.g.button("Scout", "cmdRemoveBid")->click();
    onlyMessage(m.g, RecordingMessages::Kind::Refuse, "No bid selected", "Please select a bid to remove from the list");
}

void ScoutTest::scoutedBeforeAsksAndNoStops() {
    std::string name;
    {
        Market first;
        name = first.pick(3, 1)[0];
        // His report came in an earlier week.
        ScoutRecord r;
        r.Date = "20261101";
        r.Name = name;
        r.Position = "MIDC";
        r.Club = "Elsewhere";
        writeFileAtomic(first.g.dir.path() / "SCOUT.TXT", scoutRecordBytes(r));
        first.g.controller->reload();
        first.g.teamList("Scout")->setCurrentIndex(kClub);
        QCOMPARE(first.pick(3, 1)[0], name);

        // A department that can afford the action, with its slots free.
        Club& club = first.g.session().Clubs[kClub];
        club.Scout = 12;
        club.ScoutPlayer = {};
        first.g.controller->rebuildOrderLists();
        first.g.messages.entries.clear();
        first.g.messages.answers = {false};
        first.g.button("Scout", "cmdScout")->click();
        onlyMessage(first.g, RecordingMessages::Kind::Ask, "Player already scouted",
                    q("You have scouted a player called " + name + " before. Do you still want to scout ?"));
        QVERIFY(itemsOf(first.list("Scout", "lstScoutedPlayers")).isEmpty());

        first.g.messages.answers = {true};
        first.g.on<QCheckBox>("Scout", "chkScoutAgg")->setChecked(true);
        first.g.button("Scout", "cmdScout")->click();
        const QString line = q(std::string(first.g.session().ExportClubs[3].Name) + " - " + name + " (Aggressive)");
        QCOMPARE(itemsOf(first.list("Scout", "lstScoutedPlayers")), QStringList{line});
        QCOMPARE(itemsOf(first.list("SearchResults", "lstScoutedPlayers")), QStringList{line});
        const std::vector<std::string> sheet = first.saved();
        QCOMPARE(valuesOf(sheet, "PlayerScout:").at(0), name);
        QCOMPARE(valuesOf(sheet, "ClubScout:").at(0), std::string(first.g.session().ExportClubs[3].Name));
        QCOMPARE(valuesOf(sheet, "ScoutAgg:").at(0), std::string("Aggressive"));
    }
}

void ScoutTest::searchFindsByNameAndBids() {
    Market m;
    const ExportPlayer& target = m.g.session().ExportClubs[5].Players[2];
    const std::string name(target.Name);
    m.g.button("Scout", "Command1")->click();
    auto* search = static_cast<ui::SearchResults*>(m.g.window->screen("SearchResults"));
    QCOMPARE(m.g.window->currentScreen(), static_cast<ui::Screen*>(search));
    // The first opening seeds the boxes.
    QCOMPARE(search->filter(), SearchFilter{});
    // Part of the name in other letters finds him, whatever the bands say.
    m.g.on<QLineEdit>("SearchResults", "txtPlayerSearch")->setText(q(lower(name.substr(1, 4))));
    m.g.on<QComboBox>("SearchResults", "ComboSign")->setCurrentText("5");
    m.g.button("SearchResults", "btnSearch")->click();
    QVERIFY(search->results()->selectRowWithText(1, name));
    QCOMPARE(search->results()->currentCells().at(0), std::string(m.g.session().ExportClubs[5].Name));

    m.g.button("SearchResults", "cmdBid")->click();
    QCOMPARE(itemsOf(m.list("Scout", "lstBidPlayers")).size(), 1);
    QVERIFY(itemsOf(m.list("Scout", "lstBidPlayers"))[0].startsWith(q(std::string(m.g.session().ExportClubs[5].Name) + " - " + name + " Fee ")));

    // Coming back and opening the search again keeps the boxes as they were.
    m.g.button("SearchResults", "BtnReturnToMain")->click();
    QCOMPARE(m.g.window->currentScreen(), static_cast<ui::Screen*>(m.scout));
    m.g.button("Scout", "Command1")->click();
    QCOMPARE(search->filter().Sign, std::string("5"));
}

void ScoutTest::skillComparisonFromTheSquad() {
    UiGame g;
    g.window->showScreen("SquadScr");
    g.messages.entries.clear();
    g.button("SquadScr", "btnSkill")->click();
    onlyMessage(g, RecordingMessages::Kind::Refuse, "No player selected",
                "Please select a player to compare before clicking this button");

    auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
    grid->setCurrentCell(0, 0);
    g.button("SquadScr", "btnSkill")->click();
    auto* compare = g.window->findChild<ui::CompareDialog*>("Compare");
    QVERIFY(compare);
    // A team-mate against the first player: the first row is the base as he
    // stands, the second the differences.
    QListWidget* candidates = compare->candidates();
    candidates->setCurrentRow(candidates->count() - 1);
    compare->add();
    compare->compare();
    QCOMPARE(compare->result()->rowCount(), 2);
    const Club& club = g.session().Clubs[0];
    const std::string baseName = gameText(grid->item(0, 0)->text());
    QVERIFY(q(rowPlayer(club, baseName).Name) == compare->result()->item(0, 0)->text());
    compare->close();
}

QTEST_MAIN(ScoutTest)
#include "scout_test.moc"
