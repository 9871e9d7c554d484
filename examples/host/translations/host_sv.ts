<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE">
<context>
    <name>MainWindow</name>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arkiv</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ppna...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Öppna s&amp;enaste</translation>
    </message>
    <message>
        <source>&amp;Favourites</source>
        <translation>&amp;Favoriter</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Exportera</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Avsluta</translation>
    </message>
    <message>
        <source>&amp;Adjustments</source>
        <translation>&amp;Justeringar</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Visa</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Tema</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Mörkt</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Ljust</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Språk</translation>
    </message>
    <message>
        <source>Working profile</source>
        <translation>Arbetsprofil</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Mönster</translation>
    </message>
    <message>
        <source>Foreground</source>
        <translation>Förgrund</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Bakgrund</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Verktyg</translation>
    </message>
    <message>
        <source>Tool options</source>
        <translation>Verktygsalternativ</translation>
    </message>
    <message>
        <source>Open Image</source>
        <translation>Öppna bild</translation>
    </message>
    <message>
        <source>Export Image</source>
        <translation>Exportera bild</translation>
    </message>
    <message>
        <source>Add to Favourites</source>
        <translation>Lägg till i favoriter</translation>
    </message>
    <message>
        <source>%1 x %2 pixels...</source>
        <translation>%1 x %2 pixlar...</translation>
    </message>
    <message>
        <source>The theme changes fully at the next start.</source>
        <translation>Temat byts helt vid nästa start.</translation>
    </message>
    <message>
        <source>No plug-in reads this file.</source>
        <translation>Inget insticksprogram läser den här filen.</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>Kunde inte öppna %1: %2</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 pixlar</translation>
    </message>
    <message>
        <source>Exported %1</source>
        <translation>Exporterade %1</translation>
    </message>
    <message>
        <source>Could not export %1: %2</source>
        <translation>Kunde inte exportera %1: %2</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hjälp</translation>
    </message>
    <message>
        <source>&amp;Plug-ins...</source>
        <translation>&amp;Insticksprogram...</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Loading %1...</source>
        <translation>Läser in %1...</translation>
    </message>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>Pelkaro closed unexpectedly while it loaded the plug-in "%1" at its last start.</source>
        <translation>Pelkaro avslutades oväntat medan det läste in insticksprogrammet ”%1” vid förra starten.</translation>
    </message>
    <message>
        <source>Start without it? It stays left out until you take it back under Help &gt; Plug-ins.</source>
        <translation>Starta utan det? Det utelämnas tills du tar tillbaka det under Hjälp &gt; Insticksprogram.</translation>
    </message>
    <message>
        <source>Start Without It</source>
        <translation>Starta utan det</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Försök igen</translation>
    </message>
</context>
<context>
    <name>ImageFiles</name>
    <message>
        <source>No plug-in reads "%1" files.</source>
        <translation>Inget insticksprogram läser %1-filer.</translation>
    </message>
    <message>
        <source>No plug-in writes "%1" files.</source>
        <translation>Inget insticksprogram skriver %1-filer.</translation>
    </message>
</context>
<context>
    <name>KVApplication</name>
    <message>
        <source>English</source>
        <translation>Engelska</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Tyska</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Svenska</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Ryska</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Franska</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugisiska</translation>
    </message>
</context>
<context>
    <name>PluginsDialog</name>
    <message>
        <source>Image formats</source>
        <translation>Bildformat</translation>
    </message>
    <message>
        <source>Image group</source>
        <translation>Bildgrupp</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Justering</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Pensel</translation>
    </message>
    <message>
        <source>Brush factory</source>
        <translation>Penselfabrik</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Verktyg</translation>
    </message>
    <message>
        <source>Undefined symbol</source>
        <translation>Odefinierad symbol</translation>
    </message>
    <message>
        <source>Skipped: it crashed Pelkaro while it loaded</source>
        <translation>Utelämnat: Pelkaro kraschade när det lästes in</translation>
    </message>
    <message>
        <source>Loaded in %1 ms</source>
        <translation>Inläst på %1 ms</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Saknas</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Misslyckades</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fel</translation>
    </message>
    <message>
        <source>Left out in safe mode</source>
        <translation>Utelämnat i felsäkert läge</translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation>Insticksprogram</translation>
    </message>
    <message>
        <source>The last start ended while it loaded %1.</source>
        <translation>Förra starten avslutades när %1 lästes in.</translation>
    </message>
    <message>
        <source>Safe mode: only the plug-ins that ship with Pelkaro are loaded.</source>
        <translation>Felsäkert läge: bara insticksprogrammen som följer med Pelkaro läses in.</translation>
    </message>
    <message>
        <source>Plug-in files tried: %1.</source>
        <translation>Försökta insticksfiler: %1.</translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation>Insticksprogram</translation>
    </message>
    <message>
        <source>Status and contributions</source>
        <translation>Status och bidrag</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Ta tillbaka</translation>
    </message>
    <message>
        <source>Load the selected skipped plug-in again at the next start</source>
        <translation>Läs in det valda utelämnade insticksprogrammet igen vid nästa start</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>Kopiera som JSON</translation>
    </message>
    <message>
        <source>Taken back: it loads at the next start</source>
        <translation>Tillbakataget: läses in vid nästa start</translation>
    </message>
</context>
</TS>
