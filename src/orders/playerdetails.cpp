#include "orders/playerdetails.h"

#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

namespace {

std::string n(int64_t v) { return std::to_string(v); }

// The five last performances from the latest back to the oldest.
std::string lastFive(const Player& p, std::string_view separator) {
    std::string s;
    for (int i = int(p.LastFivePerf.size()) - 1; i >= 0; --i) {
        s += n(p.LastFivePerf[size_t(i)]);
        if (i > 0) s += separator;
    }
    return s;
}

}  // namespace

std::string otherDetailsCaption(const Player& p) {
    std::string s = "Other details for " + p.Name + ".";
    if (p.LoanLength == 1) s += "  (LAST WEEK OF LOAN - YOU MAY BID FOR HIM THIS WEEK)";
    return s;
}

std::vector<std::vector<std::string>> otherDetailsRows(const Player& p, std::string_view currency) {
    return {
        {otherDetailsCaption(p)},
        {"Skill: " + n(p.Skill), "Real Skill: " + n(p.RealSkill), "Total Skill: " + n(p.TotalSkill),
         "Goals: " + n(p.Goals), "Value: " + std::string(currency) + " " + n(p.Value)},
        {"Bookings: " + n(p.Bookings), "Sendings Off: " + n(p.SendingsOff), "Book Tally: " + n(p.BookTally),
         "Listed: " + p.Listed, "Career Apps: " + n(p.CareerApps)},
        {"TL figure: " + n(p.TLFigure), "Average season perf : " + n(p.AverageSeasonPerf), "Wages : " + n(p.Wages),
         "Career Perf: " + n(p.CareerPerf)},
        {"Susp. Points: " + n(p.SuspPoints), "Career Goals: " + n(p.CareerGoals), "Last Shirt No: " + n(p.LastShirt),
         "Special Skill: " + p.SpecialSkill},
        {"Loan Length: " + n(p.LoanLength), "Loaning Club: " + p.LoaningClub,
         "Weeks left in reserves: " + n(p.WeeksInReserves)},
        {"Nationality: " + p.Nationality},
        {"Current International : " + p.CurrentInternational, "Last Int. Shirt Number: " + n(p.LastIntShirt),
         "Inter Caps: " + n(p.InterCaps), "Inter Goals: " + n(p.InterGoals)},
        {"Skill points needed for next level : " + n(skillPointsToNextLevel(p)),
         "Potential: " + potentialText(p.Potential)},
        {"Last five Performances : " + lastFive(p, std::string(12, ' '))},
    };
}

std::string otherDetailsText(const Player& p, std::string_view currency) {
    std::string s;
    const auto rows = otherDetailsRows(p, currency);
    for (size_t r = 0; r < rows.size(); ++r) {
        if (r > 0) s += "\r\n";
        for (size_t i = 0; i < rows[r].size(); ++i) {
            if (i > 0) s += '\t';
            s += rows[r][i];
        }
    }
    return s;
}

std::string createDetails(const Club& club, const Player& p) {
    const std::string E = "\r\n";
    std::string s = "Player details, sent from " + club.Name + E + E;
    s += std::string(21, ' ') +
         "Nationality    Pos  Age  PA CO TA RU SH DR DF OF FL ST CR SK  RS  TS  SU INJ" + E;
    s += fixedWidth(p.Name, 20) + fixedWidth(p.Nationality, 14) + p.Position + "  " + n(p.Age) + "  ";
    for (int i = 0; i < 11; ++i) s += padLeft(n(p.skill(i)), 2) + " ";
    s += padLeft(n(p.Skill), 2) + " ";
    s += padLeft(n(p.RealSkill), 3) + padLeft(n(p.TotalSkill), 3) + padLeft(n(p.SuspPoints), 2) +
         padLeft(n(p.Injury), 3) + E + E;
    s += "Current International  : " + p.CurrentInternational + E;
    s += "Season Performance     : " + n(p.AverageSeasonPerf) + E;
    s += "Career Performance     : " + n(p.CareerPerf) + E;
    s += "Career Games Played    : " + n(p.CareerApps) + E;
    s += "Career Goals           : " + n(p.CareerGoals) + E;
    s += "Potential              : " + n(p.Potential) + E;
    s += "Value                  : " + n(p.Value) + E;
    s += "Aggression             : " + n(p.Agg) + E;
    s += "Last five performances : " + lastFive(p, ", ") + E;
    s += "Booked " + n(p.Bookings) + ", Sent off " + n(p.SendingsOff) + ", Book Tally " + n(p.BookTally) + E;
    return s;
}

fs::path savePlayerDetails(const Session& session, std::string_view text) {
    const fs::path path = session.Folder.resolve(kPlayerDetailsFileName);
    writeFileAtomic(path, text);
    return path;
}

std::string detailsExportedText(const fs::path& path) {
    return path.string() + "\r\n" + "You can now email that file to the manager of your choice";
}

OrderResult checkDetailsRecipient(std::string_view choice) {
    if (choice.empty()) return OrderResult::refuse("No manager selected", "Please choose who you want to email the details to");
    return OrderResult::accept();
}

std::string detailsSubject(const Club& club, const Player& player) {
    return "Player Details from " + club.Name + " " + player.Name;
}

std::string allManagersRecipients(const std::vector<std::string>& addresses) {
    std::string s;
    for (const std::string& a : addresses) {
        if (a.find('@') == std::string::npos) continue;
        if (!s.empty()) s += "; ";
        s += a;
    }
    return s;
}

std::string detailsSentText(std::string_view choice) { return "Player Details e-mail Sent OK to " + std::string(choice); }

}  // namespace kestrin
