#pragma once

#include "sample/SampleObjects.h"

/// What is installed on the sample Mac. Makers and products are inventions.
namespace veridane::sample {

inline constexpr Maker kraehenfels{"Krähenfels Software GmbH", "KF7R4EHEN2"};
inline constexpr Maker zirbelquell{"Zirbelquell & Töchter GbR", "ZQ3TOE8CHT"};
inline constexpr Maker mondspalt{"Mondspalt Audio (Klangbau) GmbH", "MS9AUD1O4K"};
inline constexpr Maker hagebutz{"Hagebutz Datentechnik e.K.", "HB2DAT5ENT"};
inline constexpr Maker oldervane{"Oldervane Instruments Ltd", "OV6LTD8UKX"};
inline constexpr Maker pelagorra{"Pelagorra S.r.l.", "PG4SRL7ITA"};
inline constexpr Maker ostrike{"Østrike Systemer AS", "OS8TRK3NOR"};
inline constexpr Maker tsukigara{"月殻工房", "TG5KOB0JPN"};
inline constexpr Maker ekelvind{"Jorun Ekelvind", "JE1KEL9VND"};

// Two lines an object: what it says about itself, and what it is made of.
// clang-format off
inline constexpr Bundle bundles[] = {
    // Up to date.
    {"/Applications/Federkielchen.app", "de.kraehenfels.federkielchen", "5.2.1", "5210",
     universal, 420, {2025, 9, 18}, kraehenfels, developerID, "productivity",
     {.feed = "https://updates.kraehenfels.example/federkielchen/appcast.xml"}},
    {"/Applications/Rundumblickwinkel.app", "de.kraehenfels.rundumblickwinkel", "2.0", "311",
     appleSilicon, 260, {2025, 6, 3}, kraehenfels, store, "business", {.hasReceipt = true}},
    {"/Applications/Papyrolozzo.app", "it.pelagorra.papyrolozzo", "3.7", "3.7.0",
     universal, 310, {2025, 11, 24}, pelagorra, developerID, "graphics-design",
     {.hasSparkleFramework = true}},
    {"/Applications/Tsukigara Memo.app", "jp.tsukigara.memo", "1.12", "48",
     appleSilicon, 120, {2025, 12, 1}, tsukigara, store, "lifestyle",
     {.displayName = "月殻メモ", .hasReceipt = true}},
    {"/Applications/Fjellkassabok.app", "no.ostrike.fjellkassabok", "11.0.3", "11003",
     universal, 380, {2025, 10, 7}, ostrike, developerID, "finance"},
    {"/Applications/Taschenmöndchen.app", "jp.tsukigara.taschenmond", "4.0", "400",
     appleSilicon, 90, {2024, 8, 15}, tsukigara, store, "weather",
     {.hasReceipt = true, .isFlat = true}},
    {"/Applications/Utilities/Netzlotlein.app", "no.ostrike.netzlotlein", "1.4", "140",
     universal, 110, {2025, 2, 20}, ostrike, developerID, "utilities"},
    {"/Users/anna/Applications/Zettelwichtel.app", "com.ekelvind.zettelwichtel", "0.3", "27",
     appleSilicon, 64, {2025, 12, 19}, ekelvind, development, "developer-tools"},
    {"/System/Applications/Systemlandkarte.app", "invalid.example.systemlandkarte", "26.2", "2602",
     appleSystem, 150, {2025, 12, 5}, {}, apple, "utilities"},
    {"/System/Applications/Utilities/Leitstandwarte.app",
     "invalid.example.leitstandwarte", "26.2", "2602",
     appleSystem, 80, {2025, 12, 5}, {}, apple},

    // Native, with Intel code inside; see the components.
    {"/Applications/Tontröpfchen.app", "de.mondspalt.tontroepfchen", "8.1", "8104",
     universal, 640, {2025, 3, 14}, mondspalt, developerID, "music",
     {.feed = "https://mondspalt.invalid/appcast/tontroepfchen.xml", .hasSparkleFramework = true}},
    {"/Applications/Østrike Speilbord.app", "no.ostrike.speilbord", "6.4", "6412",
     universal, 350, {2024, 11, 11}, ostrike, developerID, "business"},
    {"/Applications/Rasterlurch.app", "de.zirbelquell.rasterlurch", "2.9", "290",
     appleSilicon, 280, {2025, 1, 30}, zirbelquell, oldStore, "photography", {.hasReceipt = true}},

    // Intel only.
    {"/Applications/Belegschublade Pro.app", "de.kraehenfels.belegschublade", "3.4", "340",
     intel, 290, {2021, 5, 17}, kraehenfels, developerID, "finance",
     {.feed = "https://updates.kraehenfels.example/belegschublade/appcast.xml"}},
    {"/Applications/Kassenkäuzchen.app", "de.hagebutz.kassenkaeuzchen", "1.8.2", "182",
     intel, 210, {2020, 10, 2}, {}, notSigned, "business", {.hasSparkleFramework = true}},
    {"/Applications/Quillarotto.app", "it.pelagorra.quillarotto", "2.2", "221",
     intel, 240, {2020, 3, 9}, pelagorra, oldStore, "education", {.hasReceipt = true}},
    {"/Applications/Mausoleum der Mäuse.app", "uk.oldervane.mausoleum", "1.1", "7",
     intelWith32Bit, 700, {2018, 12, 6}, oldervane, developerID, "action-games"},
    {"/Applications/Oldervane Suite/Tidewhistler.app", "uk.oldervane.tidewhistler", "14.0", "1400",
     intel, 360, {2019, 9, 23}, oldervane, developerID, "video"},
    {"/Applications/Oldervane Suite/Larkspooler.app", "uk.oldervane.larkspooler", "14.0", "1400",
     intel, 330, {2019, 9, 23}, oldervane, developerID, "music"},
    {"/Applications/Oldervane Suite/Registration/Oldervane Registrar.app",
     "uk.oldervane.registrar", "2.0", "200",
     intel, 70, {2019, 9, 23}, oldervane, developerID},
    {"/Users/jonas/Applications/Zauberwürflein.app", "com.ekelvind.zauberwuerfel", "0.9β", "9",
     intel, 130, {2022, 4, 1}, {}, adHoc, "games", {.displayName = "Zauber\u202Ewürflein\u200B 🎲"}},
    {"/Users/Shared/Werkzeuge/Schraubstöckchen.app", "de.hagebutz.schraubstoeckchen", "1.0", "1",
     intel, 84, {2020, 1, 13}, hagebutz, developerID},

    // Intel only, beside a native twin: by identifier, and by name.
    {"/Applications/Archiv/Lichtpultchen 2.app", "de.zirbelquell.lichtpultchen", "2.6.1", "2610",
     intel, 250, {2020, 7, 8}, zirbelquell, developerID, "photography"},
    {"/Applications/Lichtpultchen.app", "de.zirbelquell.lichtpultchen", "4.0", "4001",
     universal, 330, {2025, 8, 29}, zirbelquell, developerID, "photography"},
    {"/Applications/Wortmühlrädchen.app", "de.zirbelquell.wortmuehlraedchen3", "3.3", "330",
     intel, 170, {2019, 4, 26}, zirbelquell, developerID, "reference"},
    {"/Users/anna/Applications/WORTMÜHLRÄDCHEN.app",
     "de.zirbelquell.wortmuehlraedchen", "5.0", "500",
     appleSilicon, 190, {2025, 5, 12}, zirbelquell, developerID, "reference"},

    // Runs on no Mac of today.
    {"/Applications/Kartenmolch 3.app", "de.hagebutz.kartenmolch", "3.0", "300",
     intel32Bit, 180, {2012, 6, 21}, {}, notSigned, "travel"},
    {"/Applications/Urzeitpatience.app", "patience", "1.0.2", "102",
     powerPC, 150, {2008, 2, 29}, {}, notSigned, "games"},
    {"/Users/jonas/Applications/Handgelenkprobe.app", "jp.tsukigara.handgelenkprobe", "0.1", "3",
     arm32Bit, 48, {2016, 9, 5}, {}, adHoc, "healthcare-fitness"},

    // Scripts in a bundle, one with a name that plays with the terminal.
    {"/Applications/Datensicherung starten.app", "de.hagebutz.datensicherung", "1.2", "12",
     script, 30, {2017, 10, 19}, {}, notSigned, "utilities"},
    {"/Applications/Klangprobenheft.app", "de.mondspalt.klangprobenheft", "2", "2",
     script, 20, {2018, 1, 8}, {}, notSigned, "music",
     {.displayName = "Klang\x1B[31mproben\x07\nheft"}},

    // Audio plug-ins.
    {"/Library/Audio/Plug-Ins/Components/Nebelhallraum.component",
     "de.mondspalt.nebelhallraum", "2.1", "210",
     intel, 140, {2020, 11, 16}, mondspalt, developerID},
    {"/Library/Audio/Plug-Ins/Components/Wendelhallfeder.component",
     "de.mondspalt.wendelhallfeder", "4.0", "400",
     universal, 160, {2025, 4, 8}, mondspalt, developerID},
    {"/Library/Audio/Plug-Ins/VST/Bassgrübchen.vst", "uk.oldervane.bassgruebchen.vst", "1.5", "150",
     intel, 120, {2018, 6, 14}, oldervane, developerID},
    {"/Library/Audio/Plug-Ins/VST3/Bassgrübchen.vst3",
     "uk.oldervane.bassgruebchen.vst3", "2.0", "200",
     universal, 130, {2024, 2, 2}, oldervane, developerID},
    {"/Library/Audio/Plug-Ins/VST3/Glasgrillenchor.vst3",
     "it.pelagorra.glasgrillenchor", "1.0.4", "104",
     universal, 150, {2023, 7, 31}, pelagorra, developerID},
    {"/Library/Application Support/Avid/Audio/Plug-Ins/Kammerkäuzchen.aax",
     "de.mondspalt.kammerkaeuzchen", "3.2", "320",
     intel, 110, {2021, 3, 3}, mondspalt, developerID},
    {"/Users/anna/Library/Audio/Plug-Ins/VST/Knarzkommode.VST",
     "com.ekelvind.knarzkommode", "0.8", "8",
     intel32Bit, 60, {2013, 1, 25}},
    {"/Users/jonas/Library/Audio/Plug-Ins/Components/Urgesteinorgel.component",
     "de.hagebutz.urgesteinorgel", "1.0", "1",
     oldPowerPC, 50, {2006, 8, 30}},

    // Extensions.
    {"/Library/PreferencePanes/Tastenkobold.prefPane", "de.hagebutz.tastenkobold", "2.3", "23",
     intel, 70, {2019, 2, 11}, hagebutz, developerID, "",
     {.feed = "https://hagebutz.example/tastenkobold.xml"}},
    {"/Library/Screen Savers/Polarlaternchen.saver", "no.ostrike.polarlaternchen", "1.6", "16",
     universal, 90, {2024, 12, 24}, ostrike, developerID},
    {"/Library/QuickLook/Schriftrollenblick.qlgenerator",
     "de.kraehenfels.schriftrollenblick", "1.1", "11",
     intelWith32Bit, 64, {2016, 5, 10}, kraehenfels, developerID},
    {"/Library/Spotlight/Notenblättchen.mdimporter", "de.mondspalt.notenblaettchen", "1.0", "10",
     intel, 56, {2017, 3, 28}},
    {"/Library/SystemExtensions/0B5E7A14-2C6D-4F3A-9B11-7D20C4E8A961/"
     "no.ostrike.netzlotlein.filter.systemextension",
     "no.ostrike.netzlotlein.filter", "1.4", "140",
     universal, 72, {2025, 2, 20}, ostrike, developerID},
    {"/Users/jonas/Library/PreferencePanes/Mausrädchen.prefpane",
     "com.ekelvind.mausraedchen", "1.9", "19",
     intel32Bit, 48, {2011, 11, 3}},
};
// clang-format on

inline constexpr Component components[] = {
    {"/Applications/Tontröpfchen.app/Contents/PlugIns/Nachhall.bundle/Contents/MacOS/Nachhall",
     intel, 72},
    {"/Applications/Tontröpfchen.app/Contents/Frameworks/Altklang.framework/Versions/A/Altklang",
     intelWith32Bit, 60},
    {"/Applications/Tontröpfchen.app/Contents/Frameworks/libklangkern.dylib", universal, 64},
    {"/Applications/Østrike Speilbord.app/Contents/Helpers/Speilbord Oppdatering.app/Contents/"
     "MacOS/Speilbord Oppdatering",
     intel, 56},
    {"/Applications/Østrike Speilbord.app/Contents/Library/LoginItems/Påminner.app/Contents/MacOS/"
     "Påminner",
     universal, 48},
    {"/Applications/Rasterlurch.app/Contents/Resources/Konverter/tiffumsetzer", intel32Bit, 40},
    {"/Applications/Belegschublade Pro.app/Contents/MacOS/Belegdrucker", intel, 52},
    {"/Applications/Datensicherung starten.app/Contents/Resources/kopierwerk", intel, 44},
    {"/Library/Audio/Plug-Ins/VST3/Glasgrillenchor.vst3/Contents/Resources/lizenzpruefer", intel,
     36},
};

inline constexpr Tool tools[] = {
    {"/opt/homebrew/Cellar/flinkpacker/2.4.1/bin/flinkpacker",
     appleSilicon,
     44,
     {2025, 9, 9},
     {},
     adHoc},
    {"/opt/homebrew/Cellar/sternzähler/0.9/bin/sternzähler",
     appleSilicon,
     32,
     {2025, 7, 4},
     {},
     adHoc},
    {"/usr/local/Cellar/flinkpacker/1.8/bin/flinkpacker", intel, 40, {2021, 8, 19}},
    {"/usr/local/bin/kassenexport", intel, 36, {2020, 10, 2}, hagebutz, developerID},
    {"/usr/local/sbin/ostriked", universal, 60, {2024, 11, 11}, ostrike, developerID},
    {"/opt/local/bin/urdrucker", oldPowerPC, 28, {2007, 12, 12}},
    {"/Users/anna/.local/bin/zettelwichtel",
     appleSilicon,
     24,
     {2025, 12, 19},
     ekelvind,
     development},
    {"/Library/Application Support/Krähenfels/Abgleichdienst",
     intel,
     48,
     {2021, 5, 17},
     kraehenfels,
     developerID},
    {"/Library/Application Support/Oldervane/licensed", intelWith32Bit, 52, {2018, 6, 14}},
    {"/Library/PrivilegedHelperTools/no.ostrike.wartung",
     universal,
     56,
     {2024, 11, 11},
     ostrike,
     developerID},
    {"/Users/anna/Library/Application Support/Mondspalt/Notenwächter",
     appleSilicon,
     40,
     {2025, 3, 14},
     mondspalt,
     developerID},
};

inline constexpr Link links[] = {
    {"/opt/homebrew/bin/flinkpacker", "../Cellar/flinkpacker/2.4.1/bin/flinkpacker"},
    {"/opt/homebrew/bin/sternzähler", "../Cellar/sternzähler/0.9/bin/sternzähler"},
    {"/usr/local/bin/flinkpacker", "../Cellar/flinkpacker/1.8/bin/flinkpacker"},
    {"/usr/local/bin/sternzaehler", "/opt/homebrew/Cellar/sternzähler/0.9/bin/sternzähler"},
    {"/usr/local/bin/verwaist", "../Cellar/verwaist/1.0/bin/verwaist"},
    {"/usr/local/bin/im-kreis", "im-kreis"},
    {"/usr/local/share/alles", "/"},
    {"/Applications/Schraubstöckchen.app", "../Users/Shared/Werkzeuge/Schraubstöckchen.app"},
    {"/Applications/Verflossen.app", "/Volumes/Altes Laufwerk/Verflossen.app"},
};

inline constexpr Service services[] = {
    {"/Library/LaunchAgents/de.kraehenfels.abgleich.plist", "de.kraehenfels.abgleich",
     "/Library/Application Support/Krähenfels/Abgleichdienst", true},
    {"/Library/LaunchAgents/uk.oldervane.licensed.PLIST", nullptr,
     "/Library/Application Support/Oldervane/licensed"},
    {"/Library/LaunchAgents/de.mondspalt.tontroepfchen.plist", "de.mondspalt.tontroepfchen",
     "/Applications/Tontröpfchen.app/Contents/MacOS/Tontröpfchen"},
    {"/Library/LaunchAgents/de.hagebutz.kassenexport.plist", "de.hagebutz.kassenexport",
     "/usr/local/bin/kassenexport", true},
    {"/Library/LaunchDaemons/no.ostrike.wartung.plist", "no.ostrike.wartung",
     "/Library/PrivilegedHelperTools/no.ostrike.wartung", false, test::PlistForm::binary},
    {"/Library/LaunchDaemons/de.hagebutz.aufraeumen.plist", "de.hagebutz.aufraeumen",
     "/usr/local/bin/aufraeumen"},
    {"/Users/anna/Library/LaunchAgents/de.mondspalt.notenwaechter.plist", "Mondspalt Notenwächter",
     "/Users/anna/Library/Application Support/Mondspalt/Notenwächter", true,
     test::PlistForm::binary},
    {"/Users/jonas/Library/LaunchAgents/com.ekelvind.relativ.plist", "com.ekelvind.relativ",
     "bin/relativ"},
};

} // namespace veridane::sample
