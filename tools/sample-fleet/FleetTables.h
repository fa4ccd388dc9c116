#pragma once

#include "sample/SampleTables.h"

/// What a company's Macs choose from, besides the bundles of the sample Mac. Makers and products
/// are inventions.
namespace veridane::sample {

/// One version of a product; without a text there is none.
struct Edition {
    const char* version = nullptr;
    Code code = universal;
    int year = 0;
};

struct Product {
    const char* path; // one that begins with "~" lies in the home of the Mac's owner
    const char* identifier;
    const char* category;
    Maker maker;
    Edition old;
    Edition current;
};

/// What a bundle of the sample Mac was replaced by.
struct Successor {
    const char* identifier;
    Edition edition;
};

/// A plug-in that comes in several formats.
struct PluginFamily {
    const char* name;
    const char* identifier;
    Maker maker;
    Edition old;
    Edition current;
};

struct PluginFormat {
    const char* folder; // below the Library folder
    const char* extension;
};

/// A background service and the program that it starts.
struct Daemon {
    const char* label;
    const char* program;
    Maker maker;
    const char* product; // the identifier of what brings it along
};

inline constexpr Maker quastenflosse{"Quastenflosse Systemhaus AG", "QF5SYS7HAU"};
inline constexpr Maker duenenrain{"Dünenrain Software OHG", "DR8SOF2OHG"};
inline constexpr Maker zwetschgenwerk{"Zwetschgenwerk eG", "ZW4EG9WERK"};
inline constexpr Maker nordschlick{"Nordschlick Werkzeugbau GmbH", "NS2WZB6GMB"};
inline constexpr Maker gaufrelune{"Gaufrelune SARL", "GL7SRL3FRA"};
inline constexpr Maker halvmaane{"Halvmåne Lyd AB", "HM3LYD5SWE"};

// Two lines a product: where it is, and its editions.
// clang-format off
inline constexpr Product products[] = {
    // Everybody's.
    {"/Applications/Aktenfüchslein.app", "de.quastenflosse.aktenfuechslein", "productivity", quastenflosse,
     {"4.2", intel, 2020}, {"6.1", universal, 2025}},
    {"/Applications/Stempeluhrwart.app", "de.zwetschgenwerk.stempeluhrwart", "business", zwetschgenwerk,
     {"2.8", intel, 2019}, {}},
    {"/Applications/Konferenzgockel.app", "de.duenenrain.konferenzgockel", "social-networking", duenenrain,
     {}, {"9.3", universal, 2025}},
    {"/Applications/Postkutscher.app", "de.kraehenfels.postkutscher", "productivity", kraehenfels,
     {"3.9", intel, 2020}, {"5.0", appleSilicon, 2025}},
    {"/Applications/Tabellenhamster.app", "no.ostrike.tabellenhamster", "productivity", ostrike,
     {}, {"12.1", universal, 2025}},
    {"/Applications/Urlaubszettelchen.app", "de.zwetschgenwerk.urlaubszettelchen", "business", zwetschgenwerk,
     {"1.4", intel, 2018}, {}},
    {"/Applications/Druckerschwärzling.app", "de.hagebutz.druckerschwaerzling", "utilities", hagebutz,
     {"2.2", intel, 2020}, {"3.0", universal, 2024}},
    {"/Applications/Passwortmuschel.app", "de.duenenrain.passwortmuschel", "utilities", duenenrain,
     {}, {"7.7", appleSilicon, 2025}},
    {"/Applications/Lupenschnecke.app", "de.duenenrain.lupenschnecke", "utilities", duenenrain,
     {}, {"1.9", universal, 2023}},
    {"/Applications/Entpackesel.app", "fr.gaufrelune.entpackesel", "utilities", gaufrelune,
     {"4.9", intel, 2019}, {"5.4", universal, 2024}},
    {"/Applications/Kalenderblattlaus.app", "de.quastenflosse.kalenderblattlaus", "productivity", quastenflosse,
     {"2.0", intel, 2020}, {"2.6", universal, 2024}},
    {"/Applications/Reisekostendachs.app", "de.kraehenfels.reisekostendachs", "finance", kraehenfels,
     {"3.1", intel, 2020}, {"4.0", universal, 2025}},
    {"/Applications/Fernwartungsluchs.app", "de.duenenrain.fernwartungsluchs", "utilities", duenenrain,
     {}, {"6.0", universal, 2025}},
    {"/Applications/Virenhäscher.app", "no.ostrike.virenhaescher", "utilities", ostrike,
     {}, {"11.2", universal, 2025}},
    {"/Applications/Wissensknäuel.app", "de.quastenflosse.wissensknaeuel", "reference", quastenflosse,
     {}, {"1.3", appleSilicon, 2025}},
    {"/Applications/Vortragsreiher.app", "no.ostrike.vortragsreiher", "productivity", ostrike,
     {}, {"8.0", universal, 2025}},
    {"/Applications/Notizmolch.app", "de.duenenrain.notizmolch", "productivity", duenenrain,
     {}, {"3.3", appleSilicon, 2025}},
    {"/Applications/Faxgerät Ade.app", "de.hagebutz.faxgeraet", "business", hagebutz,
     {"1.0", intel, 2017}, {}},
    {"/Applications/Rechnungsrabe.app", "de.zwetschgenwerk.rechnungsrabe", "finance", zwetschgenwerk,
     {"5.5", intel, 2020}, {"6.0", universal, 2024}},
    {"/Applications/Scanspecht.app", "fr.gaufrelune.scanspecht", "productivity", gaufrelune,
     {"2.4", intel, 2020}, {"3.1", universal, 2023}},
    {"/Applications/Browsergimpel.app", "de.quastenflosse.browsergimpel", "productivity", quastenflosse,
     {}, {"131.0", universal, 2025}},
    {"/Applications/Kontaktqualle.app", "de.kraehenfels.kontaktqualle", "productivity", kraehenfels,
     {}, {"1.8", universal, 2024}},
    {"/Applications/Mitschnittmeise.app", "jp.tsukigara.mitschnittmeise", "business", tsukigara,
     {}, {"1.1", appleSilicon, 2025}},
    {"/Applications/Ordnerabgleicher.app", "fr.gaufrelune.ordnerabgleicher", "utilities", gaufrelune,
     {"4.1", intel, 2020}, {"4.4", universal, 2022}},
    {"~/Applications/Kaffeekassenwart.app", "com.ekelvind.kaffeekassenwart", "lifestyle", ekelvind,
     {"0.7", intel, 2020}, {"1.0", appleSilicon, 2024}},
    {"/Library/PreferencePanes/Tablettstift.prefPane", "de.nordschlick.tablettstift", "", nordschlick,
     {"5.3", intel, 2019}, {"6.3", universal, 2024}},
    {"/Library/QuickLook/Aktenblick.qlgenerator", "de.quastenflosse.aktenblick", "", quastenflosse,
     {"1.2", intel, 2018}, {}},
    {"/Library/Screen Savers/Firmenlogo.saver", "de.zwetschgenwerk.firmenlogo", "", zwetschgenwerk,
     {}, {"1.1", universal, 2022}},

    // Development.
    {"/Applications/Quelltextotter.app", "com.ekelvind.quelltextotter", "developer-tools", ekelvind,
     {}, {"2.9", universal, 2025}},
    {"/Applications/Containerkrake.app", "fr.gaufrelune.containerkrake", "developer-tools", gaufrelune,
     {"3.1", intel, 2020}, {"4.30", appleSilicon, 2025}},
    {"/Applications/Datenbankdachs.app", "de.hagebutz.datenbankdachs", "developer-tools", hagebutz,
     {"1.7", intel, 2019}, {}},
    {"/Applications/Zweigwächter.app", "de.duenenrain.zweigwaechter", "developer-tools", duenenrain,
     {"2.1", intel, 2020}, {"3.2", universal, 2024}},
    {"/Applications/Protokollratte.app", "de.nordschlick.protokollratte", "developer-tools", nordschlick,
     {"0.9", intel, 2020}, {"1.2", universal, 2023}},
    {"/Applications/Schnittstellenstelze.app", "de.duenenrain.schnittstellenstelze", "developer-tools", duenenrain,
     {}, {"10.4", universal, 2025}},

    // Design.
    {"/Applications/Farbtopfspecht.app", "it.pelagorra.farbtopfspecht", "graphics-design", pelagorra,
     {"2020.3", intel, 2020}, {"2025.1", universal, 2025}},
    {"/Applications/Vektorviper.app", "it.pelagorra.vektorviper", "graphics-design", pelagorra,
     {}, {"5.0", universal, 2025}},
    {"/Applications/Schriftsetzerlein.app", "de.zirbelquell.schriftsetzerlein", "graphics-design", zirbelquell,
     {"1.6", intel, 2018}, {}},
    {"/Applications/Druckbogenfalter.app", "de.zirbelquell.druckbogenfalter", "graphics-design", zirbelquell,
     {"10.2", intel, 2020}, {"12.0", universal, 2025}},
    {"/Applications/Belichtungsbiber.app", "de.zirbelquell.belichtungsbiber", "photography", zirbelquell,
     {"6.5", intel, 2020}, {"8.2", universal, 2025}},

    // Audio.
    {"/Applications/Spurenleserin.app", "de.mondspalt.spurenleserin", "music", mondspalt,
     {"6.0", intel, 2020}, {"7.2", universal, 2025}},
    {"/Applications/Taktgeberle.app", "se.halvmaane.taktgeberle", "music", halvmaane,
     {"3.3", intel, 2019}, {}},
    {"/Applications/Mischpultmarder.app", "se.halvmaane.mischpultmarder", "music", halvmaane,
     {}, {"2.0", universal, 2024}},
};

inline constexpr Successor successors[] = {
    {"de.kraehenfels.belegschublade", {"4.1", universal, 2024}},
    {"de.hagebutz.kassenkaeuzchen", {"2.0", universal, 2023}},
    {"it.pelagorra.quillarotto", {"3.0", appleSilicon, 2023}},
    {"uk.oldervane.tidewhistler", {"17.0", universal, 2025}},
    {"de.zirbelquell.wortmuehlraedchen3", {"5.0", appleSilicon, 2025}},
    {"de.hagebutz.tastenkobold", {"3.0", universal, 2023}},
    {"de.mondspalt.nebelhallraum", {"3.0", universal, 2023}},
};

/// Intel-only files inside native bundles, besides those of the sample's.
inline constexpr Component hiddenParts[] = {
    {"/Applications/Konferenzgockel.app/Contents/PlugIns/Bildschirmton.driver/Contents/MacOS/Bildschirmton",
     intel, 44},
    {"/Applications/Fernwartungsluchs.app/Contents/Library/LoginItems/Luchsohr.app/Contents/MacOS/Luchsohr",
     intel, 52},
    {"/Applications/Vektorviper.app/Contents/PlugIns/Altformat.bundle/Contents/MacOS/Altformat",
     intelWith32Bit, 40},
    {"/Applications/Mischpultmarder.app/Contents/Frameworks/libpultlicht.dylib", intel, 36},
};

inline constexpr PluginFamily pluginFamilies[] = {
    {"Hallgrotte", "se.halvmaane.hallgrotte", halvmaane, {"1.9", intel, 2019}, {"3.0", universal, 2024}},
    {"Echolotse", "se.halvmaane.echolotse", halvmaane, {"2.2", intel, 2020}, {"2.8", universal, 2023}},
    {"Bandrauschen", "de.mondspalt.bandrauschen", mondspalt, {"1.1", intel, 2018}, {}},
    {"Röhrenglimmer", "de.mondspalt.roehrenglimmer", mondspalt, {"4.0", intel, 2020}, {"5.1", universal, 2024}},
    {"Kompressorkröte", "uk.oldervane.kompressorkroete", oldervane, {"7.0", intel, 2019}, {}},
    {"Filterforelle", "uk.oldervane.filterforelle", oldervane, {"3.5", intel, 2020}, {"4.0", universal, 2025}},
    {"Stimmgabelfink", "fr.gaufrelune.stimmgabelfink", gaufrelune, {}, {"1.4", universal, 2024}},
    {"Trommelwirbler", "se.halvmaane.trommelwirbler", halvmaane, {"2.0", intel, 2020}, {"2.5", universal, 2022}},
};

inline constexpr PluginFormat pluginFormats[] = {
    {"/Library/Audio/Plug-Ins/Components/", ".component"},
    {"/Library/Audio/Plug-Ins/VST/", ".vst"},
    {"/Library/Audio/Plug-Ins/VST3/", ".vst3"},
};

inline constexpr Daemon daemons[] = {
    {"de.zwetschgenwerk.stempeluhrd", "/Library/Application Support/Zwetschgenwerk/stempeluhrd",
     zwetschgenwerk, "de.zwetschgenwerk.stempeluhrwart"},
    {"de.duenenrain.luchsd", "/Library/PrivilegedHelperTools/de.duenenrain.luchsd",
     duenenrain, "de.duenenrain.fernwartungsluchs"},
    {"no.ostrike.virenwacht", "/Library/PrivilegedHelperTools/no.ostrike.virenwacht",
     ostrike, "no.ostrike.virenhaescher"},
    {"de.hagebutz.druckerd", "/Library/Application Support/Hagebutz/druckerd",
     hagebutz, "de.hagebutz.druckerschwaerzling"},
    {"fr.gaufrelune.abgleichd", "/Library/Application Support/Gaufrelune/abgleichd",
     gaufrelune, "fr.gaufrelune.ordnerabgleicher"},
};
// clang-format on

/// Tools of a package manager; its folder decides what they are built for.
inline constexpr const char* packagedTools[] = {
    "flinkpacker",   "zeilenfischer", "baumlister",    "netzlauscher",     "textsieber",
    "bildverkleine", "jsonkneter",    "schlüsselbund", "protokollschwanz", "übersetzerle",
};

inline constexpr const char* accounts[] = {
    "amira", "bjarne", "carlotta", "dilan", "edda", "fadi", "greta", "henk", "ines", "jaromir",
};

} // namespace veridane::sample
