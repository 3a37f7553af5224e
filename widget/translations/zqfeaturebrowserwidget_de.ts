<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>BrowserMessage</name>
    <message>
        <source>Error writing value
Value must be between %1 and %2</source>
        <translation>Fehler beim Schreiben des Werts
Der Wert muss zwischen %1 und %2 liegen</translation>
    </message>
    <message>
        <source>Error adjusting to value %1</source>
        <translation>Fehler beim Anpassen auf den Wert %1</translation>
    </message>
    <message>
        <source>Difference between values Min and Max not divisible by Inc = %1
Value adjusted to %2</source>
        <translation>Die Differenz von Min und Max ist nicht durch Inc = %1 teilbar
Der Wert wurde auf %2 angepasst</translation>
    </message>
    <message>
        <source>Error writing feature %1
value must be between %2 and %3</source>
        <translation>Fehler beim Schreiben von %1
Der Wert muss zwischen %2 und %3 liegen</translation>
    </message>
    <message>
        <source>Error writing feature %1
%2</source>
        <translation>Fehler beim Schreiben von %1
%2</translation>
    </message>
</context>
<context>
    <name>featurebrowser::AddressEditor</name>
    <message>
        <source>“%1” is not an IPv4 address: four numbers from 0 to 255 with points between</source>
        <translation>„%1“ ist keine IPv4-Adresse: vier Zahlen von 0 bis 255 mit Punkten dazwischen</translation>
    </message>
    <message>
        <source>“%1” is not a MAC address: six pairs of hexadecimal digits with colons between</source>
        <translation>„%1“ ist keine MAC-Adresse: sechs Paare hexadezimaler Ziffern mit Doppelpunkten dazwischen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::BrowserWindow</name>
    <message>
        <source>Camera features</source>
        <translation>Kameraeinstellungen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::ChangeList</name>
    <message>
        <source>Changes of this session</source>
        <translation>Änderungen dieser Sitzung</translation>
    </message>
    <message>
        <source>Find a change</source>
        <translation>Änderung suchen</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>Alle &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy selection</source>
        <translation>&amp;Auswahl kopieren</translation>
    </message>
</context>
<context>
    <name>featurebrowser::ChangeLog</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
</context>
<context>
    <name>featurebrowser::ChangeStrip</name>
    <message>
        <source>Go to the next changed feature (F4)</source>
        <translation>Zur nächsten geänderten Einstellung (F4)</translation>
    </message>
    <message>
        <source>%1 was not accepted as entered</source>
        <translation>%1 wurde nicht wie eingegeben übernommen</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) followed</source>
        <translation>
            <numerusform>%n Einstellung folgte</numerusform>
            <numerusform>%n Einstellungen folgten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>featurebrowser::CommandQuestion</name>
    <message>
        <source>&amp;Run it</source>
        <translation>&amp;Ausführen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 can throw away what is not saved. Run it?</source>
        <translation>%1 kann Nichtgespeichertes verwerfen. Ausführen?</translation>
    </message>
</context>
<context>
    <name>featurebrowser::DescriptionPane</name>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Select a feature to read about it here</source>
        <translation>Wählen Sie eine Einstellung, um hier über sie zu lesen</translation>
    </message>
    <message>
        <source>The camera does not describe this feature</source>
        <translation>Die Kamera beschreibt diese Einstellung nicht</translation>
    </message>
</context>
<context>
    <name>featurebrowser::EventPort</name>
    <message>
        <source>Internal error: %1</source>
        <translation>Interner Fehler: %1</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Interner Fehler</translation>
    </message>
</context>
<context>
    <name>featurebrowser::FeatureModel</name>
    <message>
        <source>Feature</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Selected by</source>
        <translation>Ausgewählt durch</translation>
    </message>
    <message>
        <source>Selects</source>
        <translation>Wählt aus</translation>
    </message>
</context>
<context>
    <name>featurebrowser::FeatureTreeView</name>
    <message>
        <source>Camera features</source>
        <translation>Kameraeinstellungen</translation>
    </message>
    <message>
        <source>Nothing found for “%1” at this level</source>
        <translation>Auf dieser Stufe nichts zu „%1“ gefunden</translation>
    </message>
    <message>
        <source>Nothing found for “%1”</source>
        <translation>Nichts gefunden für „%1“</translation>
    </message>
</context>
<context>
    <name>featurebrowser::FilterBar</name>
    <message>
        <source>Show the features that the visibility level hides</source>
        <translation>Die Einstellungen zeigen, die die Stufe verbirgt</translation>
    </message>
    <message>
        <source>Expand all categories</source>
        <translation>Alle Kategorien aufklappen</translation>
    </message>
    <message>
        <source>Collapse all categories</source>
        <translation>Alle Kategorien zuklappen</translation>
    </message>
    <message>
        <source>Find a feature (Ctrl+F)</source>
        <translation>Einstellung suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Find a feature</source>
        <translation>Einstellung suchen</translation>
    </message>
    <message>
        <source>Visibility level</source>
        <translation>Sichtbarkeitsstufe</translation>
    </message>
    <message>
        <source>Show features of this level and below</source>
        <translation>Einstellungen bis zu dieser Stufe zeigen</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>Einsteiger</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>Experte</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>Guru</translation>
    </message>
    <message numerus="yes">
        <source>Show %n more</source>
        <comment>features found beyond the visibility level</comment>
        <translation>
            <numerusform>%n weitere zeigen</numerusform>
            <numerusform>%n weitere zeigen</numerusform>
        </translation>
    </message>
    <message>
        <source>Finds words of names, categories, values, entries and descriptions. Enter goes to the next hit, Shift+Enter back, Down into the tree.</source>
        <translation>Findet Wörter in Namen, Kategorien, Werten, Einträgen und Beschreibungen. Eingabe geht zum nächsten Treffer, Umschalt+Eingabe zurück, Pfeil ab in den Baum.</translation>
    </message>
    <message numerus="yes">
        <source>%n hit(s)</source>
        <translation>
            <numerusform>%n Treffer</numerusform>
            <numerusform>%n Treffer</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>featurebrowser::FloatEditor</name>
    <message>
        <source>Slider of %1</source>
        <translation>Schieberegler von %1</translation>
    </message>
</context>
<context>
    <name>featurebrowser::MessageCallout</name>
    <message>
        <source>Dismiss this message</source>
        <translation>Meldung schließen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::NumberInput</name>
    <message>
        <source>“%1” is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>“%1” is not a number; the unit of this feature is not known</source>
        <translation>„%1“ ist keine Zahl; die Einheit dieser Einstellung ist nicht bekannt</translation>
    </message>
    <message>
        <source>“%1” does not fit a feature in %2</source>
        <translation>„%1“ passt nicht zu einer Einstellung in %2</translation>
    </message>
    <message>
        <source>“%1” can be read in two ways: write %2 or %3</source>
        <translation>„%1“ lässt sich auf zwei Arten lesen: schreiben Sie %2 oder %3</translation>
    </message>
    <message>
        <source>“%1” is beyond the range of numbers</source>
        <translation>„%1“ liegt außerhalb des Zahlenbereichs</translation>
    </message>
    <message>
        <source>“%1” is not a whole number</source>
        <translation>„%1“ ist keine ganze Zahl</translation>
    </message>
    <message>
        <source>“%1” must lie between %2 and %3</source>
        <translation>„%1“ muss zwischen %2 und %3 liegen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::PinLine</name>
    <message>
        <source>Unpin %1</source>
        <translation>%1 lösen</translation>
    </message>
    <message>
        <source>Recent values of %1</source>
        <translation>Letzte Werte von %1</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Lösen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::PinStrip</name>
    <message>
        <source>Pinned features</source>
        <translation>Angeheftete Einstellungen</translation>
    </message>
    <message>
        <source>This camera has no such feature</source>
        <translation>Diese Kamera hat keine solche Einstellung</translation>
    </message>
    <message>
        <source>Last %1: from %2 to %3</source>
        <translation>Letzte %1: von %2 bis %3</translation>
    </message>
    <message>
        <source>The filter or the visibility level hides this feature in the tree</source>
        <translation>Der Filter oder die Sichtbarkeitsstufe verbirgt diese Einstellung im Baum</translation>
    </message>
</context>
<context>
    <name>featurebrowser::RowFacts</name>
    <message>
        <source>from %1</source>
        <translation>ab %1</translation>
    </message>
    <message>
        <source>up to %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>The camera is opened for reading only</source>
        <translation>Die Kamera ist nur zum Lesen geöffnet</translation>
    </message>
    <message>
        <source>Cannot be run</source>
        <translation>Kann nicht ausgeführt werden</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Nur lesbar</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>nur lesbar</translation>
    </message>
    <message>
        <source>write-only</source>
        <translation>nur schreibbar</translation>
    </message>
    <message>
        <source>read and write</source>
        <translation>les- und schreibbar</translation>
    </message>
    <message>
        <source>Not available in the camera&apos;s present configuration</source>
        <translation>In der jetzigen Konfiguration der Kamera nicht verfügbar</translation>
    </message>
    <message>
        <source>Unread: the last attempt to read it from the camera failed</source>
        <translation>Nicht gelesen: der letzte Versuch, es von der Kamera zu lesen, ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Write-only: the camera does not tell its value</source>
        <translation>Nur schreibbar: die Kamera nennt den Wert nicht</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message numerus="yes">
        <source>at most %n byte(s)</source>
        <translation>
            <numerusform>höchstens %n Byte</numerusform>
            <numerusform>höchstens %n Byte</numerusform>
        </translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Access</source>
        <translation>Zugriff</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Einträge</translation>
    </message>
    <message>
        <source>The camera is lost: this is what it held last</source>
        <translation>Die Kamera ist nicht mehr da: das hielt sie zuletzt</translation>
    </message>
    <message>
        <source>Locked: the camera takes no changes of it now</source>
        <translation>Gesperrt: die Kamera nimmt jetzt keine Änderung an</translation>
    </message>
</context>
<context>
    <name>featurebrowser::RowMenu</name>
    <message>
        <source>Copy &amp;name</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message>
        <source>Copy category as &amp;text</source>
        <translation>Kategorie als &amp;Text kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;value</source>
        <translation>&amp;Wert kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy name=value</source>
        <translation>Name=Wert &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Unpin</source>
        <translation>&amp;Lösen</translation>
    </message>
    <message>
        <source>&amp;Pin to the top</source>
        <translation>Oben anhe&amp;ften</translation>
    </message>
    <message>
        <source>Show all entries of this &amp;selector…</source>
        <translation>Alle &amp;Einträge dieses Selektors zeigen …</translation>
    </message>
    <message>
        <source>Collapse &amp;others</source>
        <translation>Ü&amp;brige zuklappen</translation>
    </message>
    <message>
        <source>&amp;Expand all</source>
        <translation>Alle &amp;aufklappen</translation>
    </message>
    <message>
        <source>Collapse &amp;all</source>
        <translation>Alle &amp;zuklappen</translation>
    </message>
    <message>
        <source>Un&amp;do</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;holen</translation>
    </message>
    <message>
        <source>C&amp;hanges…</source>
        <translation>Än&amp;derungen …</translation>
    </message>
</context>
<context>
    <name>featurebrowser::RowRoles</name>
    <message>
        <source>not available</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>unread</source>
        <translation>nicht gelesen</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>gesperrt</translation>
    </message>
    <message>
        <source>editable</source>
        <translation>änderbar</translation>
    </message>
    <message>
        <source>read-only</source>
        <translation>nur lesbar</translation>
    </message>
    <message>
        <source>button</source>
        <translation>Schaltfläche</translation>
    </message>
    <message>
        <source>checked</source>
        <translation>angekreuzt</translation>
    </message>
    <message>
        <source>not checked</source>
        <translation>nicht angekreuzt</translation>
    </message>
</context>
<context>
    <name>featurebrowser::SelectorMatrix</name>
    <message>
        <source>All entries of %1</source>
        <translation>Alle Einträge von %1</translation>
    </message>
    <message>
        <source>Read by switching %1 through its entries; it is set back afterwards.</source>
        <translation>Gelesen, indem %1 durch seine Einträge geschaltet wird; danach wird er zurückgestellt.</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>&amp;Neu lesen</translation>
    </message>
    <message>
        <source>C&amp;ancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>%v of %m entries read</source>
        <translation>%v von %m Einträgen gelesen</translation>
    </message>
    <message>
        <source>Another selector is being read: try again afterwards</source>
        <translation>Ein anderer Selektor wird gerade gelesen: versuchen Sie es danach noch einmal</translation>
    </message>
    <message>
        <source>The features were loaded anew: read again</source>
        <translation>Die Einstellungen wurden neu geladen: lesen Sie neu</translation>
    </message>
    <message>
        <source>All entries of %1 at %2</source>
        <translation>Alle Einträge von %1 bei %2</translation>
    </message>
    <message>
        <source>Nothing was changed: this was read at %1</source>
        <translation>Nichts wurde geändert: dies wurde bei %1 gelesen</translation>
    </message>
    <message>
        <source>Nothing was changed: %1 cannot be set there now</source>
        <translation>Nichts wurde geändert: %1 lässt sich dort zurzeit nicht setzen</translation>
    </message>
</context>
<context>
    <name>featurebrowser::SelectorSweep</name>
    <message>
        <source>Cancelled: not all entries were read</source>
        <translation>Abgebrochen: nicht alle Einträge wurden gelesen</translation>
    </message>
    <message>
        <source>Stopped: %1 was changed meanwhile</source>
        <translation>Angehalten: %1 wurde inzwischen geändert</translation>
    </message>
    <message>
        <source>%1 could not be set to %2</source>
        <translation>%1 ließ sich nicht auf %2 setzen</translation>
    </message>
    <message>
        <source>%1 cannot be switched now</source>
        <translation>%1 lässt sich zurzeit nicht umschalten</translation>
    </message>
</context>
<context>
    <name>featurebrowser::Sparkline</name>
    <message>
        <source>&lt; 1 s</source>
        <translation>&lt; 1 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <comment>seconds</comment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <comment>minutes</comment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h</source>
        <comment>hours</comment>
        <translation>%1 h</translation>
    </message>
</context>
<context>
    <name>featurebrowser::TextEditor</name>
    <message>
        <source>Bytes of the text and the most that the camera takes</source>
        <translation>Bytes des Textes und wie viele die Kamera höchstens nimmt</translation>
    </message>
    <message>
        <source>The text has %1 bytes; the camera takes at most %2</source>
        <translation>Der Text hat %1 Bytes; die Kamera nimmt höchstens %2</translation>
    </message>
</context>
<context>
    <name>featurebrowser::ValueWriter</name>
    <message>
        <source>The camera has not taken “%1”; the row shows what it holds</source>
        <translation>Die Kamera hat „%1“ nicht übernommen; die Zeile zeigt, was sie enthält</translation>
    </message>
    <message>
        <source>Entered: %1</source>
        <translation>Eingegeben: %1</translation>
    </message>
    <message>
        <source>“%1” was not written: nothing is connected to this browser</source>
        <translation>„%1“ wurde nicht geschrieben: mit diesem Browser ist nichts verbunden</translation>
    </message>
    <message>
        <source>The camera has not confirmed “%1”; the row shows the last known value</source>
        <translation>Die Kamera hat „%1“ nicht bestätigt; die Zeile zeigt den letzten bekannten Wert</translation>
    </message>
    <message>
        <source>The camera has put “%1” onto “%2”</source>
        <translation>Die Kamera hat „%1“ auf „%2“ gesetzt</translation>
    </message>
</context>
<context>
    <name>featurebrowser::WriteHistory</name>
    <message>
        <source>Refused: %1</source>
        <translation>Abgelehnt: %1</translation>
    </message>
    <message>
        <source>Command run</source>
        <translation>Befehl ausgeführt</translation>
    </message>
    <message>
        <source>Not confirmed</source>
        <translation>Nicht bestätigt</translation>
    </message>
    <message>
        <source>Adjusted to %1</source>
        <translation>Angepasst auf %1</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Übernommen</translation>
    </message>
    <message>
        <source>%1 is not there any more: its step is dropped</source>
        <translation>%1 gibt es nicht mehr: der Schritt entfällt</translation>
    </message>
    <message>
        <source>The filter or the visibility level hides %1: nothing was changed</source>
        <translation>Der Filter oder die Sichtbarkeitsstufe verbirgt %1: nichts wurde geändert</translation>
    </message>
    <message>
        <source>Nothing was changed: this step was made at %1</source>
        <translation>Nichts wurde geändert: dieser Schritt entstand bei %1</translation>
    </message>
    <message>
        <source>Nothing was changed: this feature is read-only now</source>
        <translation>Nichts wurde geändert: diese Einstellung ist jetzt nur lesbar</translation>
    </message>
    <message>
        <source>Nothing was changed: “%1” is not available now</source>
        <translation>Nichts wurde geändert: „%1“ ist zurzeit nicht verfügbar</translation>
    </message>
</context>
</TS>
