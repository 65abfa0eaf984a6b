#pragma once
// Word lists of the demo league, all invented. Text is Windows-1252.
#include <string>
#include <vector>

namespace kestrin::demo::names {

inline const std::vector<std::string> kTowns = {
    "Ashcombe",     "Brackenford",  "Colbridge",    "Dunmere",       "Eastwick",     "Garsby",
    "Hollinwell",   "Kettleby",     "Larkhaven",    "Marlow Cross",  "Netherby",     "Oakhurst",
    "Pellingham",   "Quarrington",  "Redmoor",      "Saltmarsh",     "Thornbury",    "Upwell",
    "Valemouth",    "Wexcombe",     "Yarrowdale",   "Ashby Vale",    "Blackmere",    "Copperfield",
    "Dalesworth",   "Elmstead",     "Fernhill",     "Greystone",     "Harrowgate",   "Ironbridge",
    "Kingsmead",    "Lowther",      "Millbrook",    "Northam",       "Ormsby",       "Penrose",
    "Rookwood",     "Stanbury",     "Tarnside",     "Underhill",     "Westerley",    "Whitcombe",
    "Wolverley",    "Aldermoor",    "Birchley",     "Cranwell",      "Dovecote",     "Edgeworth",
    "Foxley",       "Glenholme",    "Heathfield",   "Kestrel Bay",   "Langford",     "Merriton",
    "Newbold",      "Oxley",        "Port Kestrel", "Ravensholt",    "Sandmoor",     "Tidewell",
    "Westholme",    "Amberley",     "Bramhope",     "Castleton",     "Draycott",     "Everleigh",
    "Farnworth",    "Gatesby",      "Holbeck",      "Ingleby",       "Jarrowby",     "Kirkdale",
    "Lindale",      "Moorcross",    "Norwell",      "Otterburn",     "Pendlebury",   "Rushden Vale",
    "Stockwell",    "Thistlewood",  "Ulverby",      "Wharfedale",    "Yelverton",    "Brinkhill",
    "Coldharbour",  "Duncliffe",    "Eastmoor",     "Grangeford",    "Hawksmoor",    "Kingsbridge",
};

inline const std::vector<std::string> kClubWords = {
    "Rovers",  "United",    "Athletic", "Town",     "City",        "Wanderers", "Albion",   "Rangers",
    "Borough", "Villa",     "Harriers", "Olympic",  "Corinthians", "Swifts",    "Victoria", "Alliance",
    "Thistle", "County",    "Amateurs", "Phoenix",  "Saints",      "Vale",      "Colliery", "Railway",
};

// Put in front of a name when the towns and words run out.
inline const std::vector<std::string> kTownPrefixes = {"North", "South", "East", "West", "Old", "New", "Upper", "Lower"};

// A club's colours as the Squadsheet gives them: two characters, then the
// colour words, which the kit pictures look up from the third character on.
inline const std::vector<std::string> kColours = {
    "- Sky Blue & White",   "- Red and White",          "- Claret and Blue",  "- Black and Amber",
    "- Royal Blue & White", "- Green and Yellow",       "- All Orange",       "- All Red",
    "- All White",          "- Navy Blue and Sky Blue", "- Yellow and Green", "- Black and White",
    "- All Claret",         "- Orange and Black",       "- Blue and White Hoops", "- Red and Black",
    "- Purple and Yellow",  "- Red and White Stripes",  "- All Green",        "- Blue and Grey",
};

inline const std::vector<std::string> kStadiums = {
    "Mill Lane",      "The Quarry Ground", "Victoria Road",  "Station Park",   "Brook Meadow",
    "The Showground", "Church Lane",       "Riverside",      "Kiln Road",      "The Memorial Ground",
    "Foundry Park",   "Castle Field",      "Gasworks Lane",  "The Hollow",     "Ropewalk Park",
};

inline const std::vector<std::string> kSponsors = {
    "Harwell Brewing Company", "Tarnside Motors",         "Blackmere Building Society", "Pennine Windows",
    "Lark Insurance",          "Copperfield Bakeries",    "Dalesworth Dairies",         "Kestrel Print",
    "Redmoor Quarries",        "Fernhill Garden Centre",  "Valemouth Ferries",          "Northam Haulage",
};

// Surnames with the nationalities their bearers are drawn from; an empty
// list means the home nations.
struct Surname {
    const char* name;
    std::vector<std::string> nationalities;
};

inline const std::vector<std::string> kHomeNations = {"English", "English", "English", "English", "Scottish",
                                                      "Welsh",   "Irish",   "English", "Scottish"};

inline const std::vector<Surname> kSurnames = {
    {"Abbott", {}},      {"Ashworth", {}},     {"Bailey", {}},      {"Barlow", {}},       {"Beckett", {}},
    {"Birch", {}},       {"Blackwood", {}},    {"Bramley", {}},     {"Brennan", {}},      {"Bright", {}},
    {"Carver", {}},      {"Chadwick", {}},     {"Clegg", {}},       {"Coates", {}},       {"Crossley", {}},
    {"Dalton", {}},      {"Darby", {}},        {"Denholm", {}},     {"Dobson", {}},       {"Drury", {}},
    {"Eccles", {}},      {"Elwood", {}},       {"Fairclough", {}},  {"Farrow", {}},       {"Fenwick", {}},
    {"Fletcher", {}},    {"Garside", {}},      {"Gilmour", {}},     {"Goodall", {}},      {"Greaves", {}},
    {"Hadley", {}},      {"Halliwell", {}},    {"Hargreaves", {}},  {"Heaton", {}},       {"Hepworth", {}},
    {"Holroyd", {}},     {"Horsfall", {}},     {"Ingham", {}},      {"Jagger", {}},       {"Kershaw", {}},
    {"Kirkby", {}},      {"Lambert", {}},      {"Lockwood", {}},    {"Lund", {}},         {"Marsden", {}},
    {"Mellor", {}},      {"Milner", {}},       {"Moorhouse", {}},   {"Naylor", {}},       {"Nuttall", {}},
    {"Oldroyd", {}},     {"Ormerod", {}},      {"Pickles", {}},     {"Priestley", {}},    {"Radcliffe", {}},
    {"Redfern", {}},     {"Rushworth", {}},    {"Sagar", {}},       {"Schofield", {}},    {"Shackleton", {}},
    {"Sutcliffe", {}},   {"Swales", {}},       {"Tattersall", {}},  {"Thwaite", {}},      {"Tordoff", {}},
    {"Uttley", {}},      {"Varley", {}},       {"Wadsworth", {}},   {"Whiteley", {}},     {"Wilde", {}},
    {"Womersley", {}},   {"Yeadon", {}},       {"Ackroyd", {}},     {"Barraclough", {}},  {"Booth", {}},
    {"Brearley", {}},    {"Cawthorne", {}},    {"Crabtree", {}},    {"Dewhurst", {}},     {"Emmott", {}},
    {"Firth", {}},       {"Greenwood", {}},    {"Haigh", {}},       {"Holt", {}},         {"Illingworth", {}},
    {"Jowett", {}},      {"Kitson", {}},       {"Laycock", {}},     {"Mitchell", {}},     {"Noble", {}},
    {"Oates", {}},       {"Pollard", {}},      {"Rhodes", {}},      {"Stansfield", {}},   {"Tetley", {}},
    {"Walsh", {}},       {"Wormald", {}},      {"O'Brien", {"Irish"}},                    {"Gallagher", {"Irish"}},
    {"Doherty", {"Irish"}},                    {"McAllister", {"Scottish"}},              {"McBride", {"Scottish"}},
    {"Lennox", {"Scottish"}},                  {"Fraser", {"Scottish"}},                  {"Buchanan", {"Scottish"}},
    {"Gillespie", {"Scottish"}},               {"Rees", {"Welsh"}},                       {"Llewellyn", {"Welsh"}},
    {"Pritchard", {"Welsh"}},                  {"Vaughan", {"Welsh"}},                    {"Moreau", {"French"}},
    {"Laurent", {"French"}},                   {"Girard", {"French"}},                    {"Dubois", {"French", "Belgian"}},
    {"P\xE9rez", {"Spanish", "Argentinian"}},  {"Ib\xE1\xF1" "ez", {"Spanish"}},           {"M\xFCller", {"German", "Swiss"}},
    {"Schr\xF6" "der", {"German"}},            {"Jansen", {"Dutch"}},                     {"de Vries", {"Dutch"}},
    {"Bakker", {"Dutch"}},                     {"Lindqvist", {"Swedish"}},                {"Andersen", {"Danish", "Norwegian"}},
    {"Nilsen", {"Norwegian"}},                 {"Haraldsson", {"Icelandic"}},             {"Costa", {"Portuguese", "Brazilian"}},
    {"Ferreira", {"Portuguese", "Brazilian"}}, {"Silva", {"Brazilian"}},                  {"Okafor", {"Nigerian"}},
    {"Adeyemi", {"Nigerian"}},                 {"Mensah", {"Ghanaian"}},                  {"Kowalski", {"Polish"}},
    {"Nowak", {"Polish"}},                     {"Dvo\x9A\xE1k", {"Czech"}},                 {"Horvat", {"Croatian"}},
    {"Rossi", {"Italian"}},                    {"Conti", {"Italian"}},                    {"Tane", {"New Zealander"}},
};

inline const std::vector<std::string> kFirstNames = {"Alan", "Beth",  "Chris", "Dana",  "Eric", "Fran",
                                                    "Gary", "Helen", "Ian",   "Jill",  "Ken",  "Lynn",
                                                    "Mark", "Nina",  "Owen",  "Paula", "Ray",  "Sue"};

inline const std::vector<std::string> kInitials = {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J",
                                                   "K", "L", "M", "N", "O", "P", "R", "S", "T", "W"};

inline const std::vector<std::string> kSpecialSkills = {"None",     "None",     "None",     "None",      "Heading",
                                                        "Pace",     "Passing",  "Shooting", "Tackling",  "Leadership",
                                                        "Stamina",  "Vision",   "Dribbling", "Crossing"};

inline const std::vector<std::string> kCups = {"Kestrin Cup Round 3", "League Cup Round 2",
                                               "Counties Trophy Quarter Final", "Friendly"};

inline const std::vector<std::string> kReferees = {"M. Oakes", "D. Fenby", "R. Hollis", "K. Pardoe", "S. Wetherall"};

}  // namespace kestrin::demo::names
