<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>MainWindow</name>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Favourites</source>
        <translation>&amp;Favoriten</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Exportieren</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Adjustments</source>
        <translation>&amp;Korrekturen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Design</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Working profile</source>
        <translation>Arbeitsfarbraum</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Foreground</source>
        <translation>Vordergrund</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Tool options</source>
        <translation>Werkzeugoptionen</translation>
    </message>
    <message>
        <source>Open Image</source>
        <translation>Bild öffnen</translation>
    </message>
    <message>
        <source>Export Image</source>
        <translation>Bild exportieren</translation>
    </message>
    <message>
        <source>Add to Favourites</source>
        <translation>Zu Favoriten hinzufügen</translation>
    </message>
    <message>
        <source>%1 x %2 pixels...</source>
        <translation>%1 x %2 Pixel...</translation>
    </message>
    <message>
        <source>The theme changes fully at the next start.</source>
        <translation>Das Design wechselt beim nächsten Start vollständig.</translation>
    </message>
    <message>
        <source>No plug-in reads this file.</source>
        <translation>Kein Plug-in liest diese Datei.</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>%1 konnte nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 Pixel</translation>
    </message>
    <message>
        <source>Exported %1</source>
        <translation>%1 exportiert</translation>
    </message>
    <message>
        <source>Could not export %1: %2</source>
        <translation>%1 konnte nicht exportiert werden: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Loading %1...</source>
        <translation>%1 wird geladen...</translation>
    </message>
</context>
<context>
    <name>ImageFiles</name>
    <message>
        <source>No plug-in reads "%1" files.</source>
        <translation>Kein Plug-in liest „%1“-Dateien.</translation>
    </message>
    <message>
        <source>No plug-in writes "%1" files.</source>
        <translation>Kein Plug-in schreibt „%1“-Dateien.</translation>
    </message>
</context>
<context>
    <name>KVApplication</name>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
</context>
</TS>
