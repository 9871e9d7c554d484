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
</context>
<context>
    <name>main</name>
    <message>
        <source>Loading %1...</source>
        <translation>Loading %1...</translation>
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
</TS>
