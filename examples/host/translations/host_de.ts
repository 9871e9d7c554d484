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
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Plug-ins...</source>
        <translation>&amp;Plug-ins...</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Loading %1...</source>
        <translation>%1 wird geladen...</translation>
    </message>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>Pelkaro closed unexpectedly while it loaded the plug-in "%1" at its last start.</source>
        <translation>Pelkaro wurde beim letzten Start unerwartet beendet, während es das Plug-in „%1“ lud.</translation>
    </message>
    <message>
        <source>Start without it? It stays left out until you take it back under Help &gt; Plug-ins.</source>
        <translation>Ohne es starten? Es bleibt ausgelassen, bis Sie es unter Hilfe &gt; Plug-ins zurücknehmen.</translation>
    </message>
    <message>
        <source>Start Without It</source>
        <translation>Ohne es starten</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
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
<context>
    <name>PluginsDialog</name>
    <message>
        <source>Image formats</source>
        <translation>Bildformate</translation>
    </message>
    <message>
        <source>Image group</source>
        <translation>Bildgruppe</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Korrektur</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Brush factory</source>
        <translation>Pinselfabrik</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>Undefined symbol</source>
        <translation>Undefiniertes Symbol</translation>
    </message>
    <message>
        <source>Skipped: it crashed Pelkaro while it loaded</source>
        <translation>Ausgelassen: Pelkaro stürzte beim Laden ab</translation>
    </message>
    <message>
        <source>Loaded in %1 ms</source>
        <translation>Geladen in %1 ms</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Left out in safe mode</source>
        <translation>Im abgesicherten Modus ausgelassen</translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation>Plug-ins</translation>
    </message>
    <message>
        <source>The last start ended while it loaded %1.</source>
        <translation>Der letzte Start endete beim Laden von %1.</translation>
    </message>
    <message>
        <source>Safe mode: only the plug-ins that ship with Pelkaro are loaded.</source>
        <translation>Abgesicherter Modus: Nur die mit Pelkaro gelieferten Plug-ins werden geladen.</translation>
    </message>
    <message>
        <source>Plug-in files tried: %1.</source>
        <translation>Versuchte Plug-in-Dateien: %1.</translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation>Plug-in</translation>
    </message>
    <message>
        <source>Status and contributions</source>
        <translation>Status und Beiträge</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Load the selected skipped plug-in again at the next start</source>
        <translation>Das gewählte ausgelassene Plug-in beim nächsten Start wieder laden</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>Als JSON kopieren</translation>
    </message>
    <message>
        <source>Taken back: it loads at the next start</source>
        <translation>Zurückgenommen: wird beim nächsten Start geladen</translation>
    </message>
</context>
</TS>
