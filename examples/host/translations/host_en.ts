<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB">
<context>
    <name>MainWindow</name>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Open...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Open &amp;Recent</translation>
    </message>
    <message>
        <source>&amp;Favourites</source>
        <translation>&amp;Favourites</translation>
    </message>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>&amp;Adjustments</source>
        <translation>&amp;Adjustments</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Theme</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dark</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Light</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>Working profile</source>
        <translation>Working profile</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Pattern</translation>
    </message>
    <message>
        <source>Foreground</source>
        <translation>Foreground</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Background</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Tools</translation>
    </message>
    <message>
        <source>Tool options</source>
        <translation>Tool options</translation>
    </message>
    <message>
        <source>Open Image</source>
        <translation>Open Image</translation>
    </message>
    <message>
        <source>Export Image</source>
        <translation>Export Image</translation>
    </message>
    <message>
        <source>Add to Favourites</source>
        <translation>Add to Favourites</translation>
    </message>
    <message>
        <source>%1 x %2 pixels...</source>
        <translation>%1 x %2 pixels...</translation>
    </message>
    <message>
        <source>The theme changes fully at the next start.</source>
        <translation>The theme changes fully at the next start.</translation>
    </message>
    <message>
        <source>No plug-in reads this file.</source>
        <translation>No plug-in reads this file.</translation>
    </message>
    <message>
        <source>Could not open %1: %2</source>
        <translation>Could not open %1: %2</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 pixels</translation>
    </message>
    <message>
        <source>Exported %1</source>
        <translation>Exported %1</translation>
    </message>
    <message>
        <source>Could not export %1: %2</source>
        <translation>Could not export %1: %2</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
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
        <translation>Loading %1...</translation>
    </message>
    <message>
        <source>Pelkaro</source>
        <translation>Pelkaro</translation>
    </message>
    <message>
        <source>Pelkaro closed unexpectedly while it loaded the plug-in "%1" at its last start.</source>
        <translation>Pelkaro closed unexpectedly while it loaded the plug-in "%1" at its last start.</translation>
    </message>
    <message>
        <source>Start without it? It stays left out until you take it back under Help &gt; Plug-ins.</source>
        <translation>Start without it? It stays left out until you take it back under Help &gt; Plug-ins.</translation>
    </message>
    <message>
        <source>Start Without It</source>
        <translation>Start Without It</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Try Again</translation>
    </message>
</context>
<context>
    <name>ImageFiles</name>
    <message>
        <source>No plug-in reads "%1" files.</source>
        <translation>No plug-in reads "%1" files.</translation>
    </message>
    <message>
        <source>No plug-in writes "%1" files.</source>
        <translation>No plug-in writes "%1" files.</translation>
    </message>
</context>
<context>
    <name>KVApplication</name>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>German</source>
        <translation>German</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russian</translation>
    </message>
    <message>
        <source>French</source>
        <translation>French</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portuguese</translation>
    </message>
</context>
<context>
    <name>PluginsDialog</name>
    <message>
        <source>Image formats</source>
        <translation>Image formats</translation>
    </message>
    <message>
        <source>Image group</source>
        <translation>Image group</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Adjustment</translation>
    </message>
    <message>
        <source>Brush</source>
        <translation>Brush</translation>
    </message>
    <message>
        <source>Brush factory</source>
        <translation>Brush factory</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Tool</translation>
    </message>
    <message>
        <source>Undefined symbol</source>
        <translation>Undefined symbol</translation>
    </message>
    <message>
        <source>Skipped: it crashed Pelkaro while it loaded</source>
        <translation>Skipped: it crashed Pelkaro while it loaded</translation>
    </message>
    <message>
        <source>Loaded in %1 ms</source>
        <translation>Loaded in %1 ms</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Missing</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Left out in safe mode</source>
        <translation>Left out in safe mode</translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation>Plug-ins</translation>
    </message>
    <message>
        <source>The last start ended while it loaded %1.</source>
        <translation>The last start ended while it loaded %1.</translation>
    </message>
    <message>
        <source>Safe mode: only the plug-ins that ship with Pelkaro are loaded.</source>
        <translation>Safe mode: only the plug-ins that ship with Pelkaro are loaded.</translation>
    </message>
    <message>
        <source>Plug-in files tried: %1.</source>
        <translation>Plug-in files tried: %1.</translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation>Plug-in</translation>
    </message>
    <message>
        <source>Status and contributions</source>
        <translation>Status and contributions</translation>
    </message>
    <message>
        <source>Take Back</source>
        <translation>Take Back</translation>
    </message>
    <message>
        <source>Load the selected skipped plug-in again at the next start</source>
        <translation>Load the selected skipped plug-in again at the next start</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>Copy as JSON</translation>
    </message>
    <message>
        <source>Taken back: it loads at the next start</source>
        <translation>Taken back: it loads at the next start</translation>
    </message>
</context>
</TS>
