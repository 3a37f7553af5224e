<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>zqviewer::CameraKeeper</name>
    <message>
        <source>The camera answers again; its features are read anew.</source>
        <translation>Die Kamera antwortet wieder; ihre Einstellungen werden neu gelesen.</translation>
    </message>
    <message>
        <source>The features could not be read: %1</source>
        <translation>Die Einstellungen konnten nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Reading was cancelled: rows may be outdated. F5 reads all.</source>
        <translation>Das Lesen wurde abgebrochen: Zeilen können veraltet sein. F5 liest alle.</translation>
    </message>
    <message>
        <source>Another camera is here now: %1</source>
        <translation>Hier ist jetzt eine andere Kamera: %1</translation>
    </message>
    <message>
        <source>Reconnecting was cancelled.</source>
        <translation>Das Wiederverbinden wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Connected again, but reading was cancelled. F5 reads all features.</source>
        <translation>Wieder verbunden, aber das Lesen wurde abgebrochen. F5 liest alle Einstellungen.</translation>
    </message>
    <message>
        <source>Another camera is here now: %1;</source>
        <translation>Hier ist jetzt eine andere Kamera: %1;</translation>
    </message>
    <message>
        <source>Connected again;</source>
        <translation>Wieder verbunden;</translation>
    </message>
</context>
<context>
    <name>zqviewer::CameraTaskBar</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>%1 %2 s</source>
        <translation>%1 %2 s</translation>
    </message>
</context>
<context>
    <name>zqviewer::ChunkPane</name>
    <message>
        <source>Nothing came along with this image. With ChunkModeActive the camera sends what ChunkEnable asks for.</source>
        <translation>Mit diesem Bild kam nichts weiter. Bei eingeschaltetem ChunkModeActive sendet die Kamera mit, was ChunkEnable verlangt.</translation>
    </message>
    <message>
        <source>Chunk data</source>
        <translation>Bilddaten (Chunks)</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>zqviewer::ComparisonWindow</name>
    <message>
        <source>(none)</source>
        <translation>(keiner)</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>%1 compared with %2</source>
        <translation>%1 verglichen mit %2</translation>
    </message>
    <message>
        <source>Choose &amp;all</source>
        <translation>&amp;Alle wählen</translation>
    </message>
    <message>
        <source>Choose &amp;none</source>
        <translation>&amp;Keine wählen</translation>
    </message>
    <message>
        <source>&amp;Write chosen to the camera</source>
        <translation>Gewählte in die Kamera &amp;schreiben</translation>
    </message>
    <message>
        <source>&amp;Put chosen into %1</source>
        <translation>&amp;Gewählte in %1 übernehmen</translation>
    </message>
    <message>
        <source>No differences.</source>
        <translation>Keine Unterschiede.</translation>
    </message>
    <message numerus="yes">
        <source>%n difference(s)</source>
        <translation>
            <numerusform>%n Unterschied</numerusform>
            <numerusform>%n Unterschiede</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zqviewer::EventLog</name>
    <message>
        <source>Written</source>
        <translation>Geschrieben</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Lost</source>
        <translation>Verloren</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
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
    <name>zqviewer::HistogramPane</name>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmisch</translation>
    </message>
    <message>
        <source>Mean %1 %, black %2 %, brightest %3 %</source>
        <translation>Mittel %1 %, schwarz %2 %, am hellsten %3 %</translation>
    </message>
</context>
<context>
    <name>zqviewer::ImagePane</name>
    <message>
        <source>St&amp;art images</source>
        <translation>Bilder st&amp;arten</translation>
    </message>
    <message>
        <source>St&amp;op images</source>
        <translation>Bilder st&amp;oppen</translation>
    </message>
    <message>
        <source>&amp;Single image</source>
        <translation>&amp;Einzelbild</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>Se&amp;veral images…</source>
        <translation>&amp;Mehrere Bilder…</translation>
    </message>
    <message>
        <source>&amp;Use the selected region</source>
        <translation>Ausgewählten &amp;Bereich verwenden</translation>
    </message>
    <message>
        <source>Use region</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Have the camera send only the region that was drawn with Shift and the mouse</source>
        <translation>Die Kamera nur den Bereich senden lassen, der mit Umschalt und der Maus gezogen wurde</translation>
    </message>
    <message>
        <source>Use the &amp;whole sensor</source>
        <translation>&amp;Ganzen Sensor verwenden</translation>
    </message>
    <message>
        <source>&amp;Fit the image</source>
        <translation>Bild &amp;einpassen</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Show the whole image (0)</source>
        <translation>Das ganze Bild zeigen (0)</translation>
    </message>
    <message>
        <source>&amp;1:1</source>
        <translation>&amp;1:1</translation>
    </message>
    <message>
        <source>Show one pixel of the image as one of the screen (1)</source>
        <translation>Einen Bildpunkt der Kamera als einen des Bildschirms zeigen (1)</translation>
    </message>
    <message>
        <source>Mark &amp;overexposure</source>
        <translation>Über&amp;belichtung markieren</translation>
    </message>
    <message>
        <source>Overexposure</source>
        <translation>Überbelichtung</translation>
    </message>
    <message>
        <source>Mark in red what is as bright as the camera can tell</source>
        <translation>Rot markieren, was so hell ist, wie die Kamera es angeben kann</translation>
    </message>
    <message>
        <source>Rotate &amp;left</source>
        <translation>Nach &amp;links drehen</translation>
    </message>
    <message>
        <source>Rotate &amp;right</source>
        <translation>Nach &amp;rechts drehen</translation>
    </message>
    <message>
        <source>Flip &amp;horizontally</source>
        <translation>&amp;Waagerecht spiegeln</translation>
    </message>
    <message>
        <source>Flip &amp;vertically</source>
        <translation>&amp;Senkrecht spiegeln</translation>
    </message>
    <message>
        <source>&amp;Save this image…</source>
        <translation>Dieses Bild &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Record images…</source>
        <translation>Bilder auf&amp;zeichnen…</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Several images</source>
        <translation>Mehrere Bilder</translation>
    </message>
    <message>
        <source>Stop after so many images:</source>
        <translation>Nach so vielen Bildern anhalten:</translation>
    </message>
    <message>
        <source>This image was taken with other settings: take a new one first.</source>
        <translation>Dieses Bild wurde mit anderen Einstellungen aufgenommen: zuerst ein neues aufnehmen.</translation>
    </message>
    <message>
        <source>The camera&apos;s region is %1 now.</source>
        <translation>Der Bereich der Kamera ist jetzt %1.</translation>
    </message>
    <message>
        <source>Save this image</source>
        <translation>Dieses Bild speichern</translation>
    </message>
    <message>
        <source>Images (*.png *.tif *.tiff)</source>
        <translation>Bilder (*.png *.tif *.tiff)</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Record images in this folder</source>
        <translation>Bilder in diesem Ordner aufzeichnen</translation>
    </message>
    <message>
        <source>The folder &apos;%1&apos; cannot be made.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Find the best &amp;packets</source>
        <translation>Beste &amp;Pakete finden</translation>
    </message>
    <message>
        <source>Measure with which packet size and delay the images of a GigE Vision camera arrive</source>
        <translation>Messen, mit welcher Paketgröße und welchem Abstand die Bilder einer GigE-Vision-Kamera ankommen</translation>
    </message>
    <message>
        <source>Raw, without interpolated colours (*.png *.tif *.tiff)</source>
        <translation>Roh, ohne interpolierte Farben (*.png *.tif *.tiff)</translation>
    </message>
    <message>
        <source>Not live: the last image, of %1</source>
        <translation>Nicht live: das letzte Bild, von %1</translation>
    </message>
</context>
<context>
    <name>zqviewer::LiveImage</name>
    <message>
        <source>Images are being acquired.</source>
        <translation>Bilder werden aufgenommen.</translation>
    </message>
    <message>
        <source>Starting the images was cancelled.</source>
        <translation>Das Starten der Bilder wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The acquisition has stopped.</source>
        <translation>Die Aufnahme wurde angehalten.</translation>
    </message>
    <message numerus="yes">
        <source>%n image(s) recorded in %1</source>
        <translation>
            <numerusform>%n Bild aufgezeichnet in %1</numerusform>
            <numerusform>%n Bilder aufgezeichnet in %1</numerusform>
        </translation>
    </message>
    <message>
        <source>, none missing.</source>
        <translation>, keines fehlt.</translation>
    </message>
    <message>
        <source>; %1 did not arrive and %2 could not be written in time: index.csv says which.</source>
        <translation>; %1 kamen nicht an und %2 konnten nicht rechtzeitig geschrieben werden: index.csv sagt, welche.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 images/s, %2 MB/s</source>
        <translation>%1 Bilder/s, %2 MB/s</translation>
    </message>
    <message numerus="yes">
        <source>, %n lost</source>
        <translation>
            <numerusform>, %n verloren</numerusform>
            <numerusform>, %n verloren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n incomplete</source>
        <translation>
            <numerusform>, %n unvollständig</numerusform>
            <numerusform>, %n unvollständig</numerusform>
        </translation>
    </message>
    <message>
        <source>, recorded %1</source>
        <translation>, %1 aufgezeichnet</translation>
    </message>
    <message>
        <source> (%1 waiting)</source>
        <translation> (%1 warten)</translation>
    </message>
    <message>
        <source>Looking for the best packets was cancelled.</source>
        <translation>Die Suche nach den besten Paketen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Images without a free buffer, as this computer is too slow</source>
        <translation>Bilder ohne freien Puffer, da dieser Rechner zu langsam ist</translation>
    </message>
    <message>
        <source>Gaps between images</source>
        <translation>Lücken zwischen Bildern</translation>
    </message>
    <message>
        <source>Packets that never came</source>
        <translation>Pakete, die nie kamen</translation>
    </message>
    <message>
        <source>Packets asked for again</source>
        <translation>Pakete, die erneut verlangt wurden</translation>
    </message>
    <message>
        <source>Packets that came when asked again</source>
        <translation>Pakete, die erneut verlangt kamen</translation>
    </message>
    <message>
        <source>Images of another size than at the start</source>
        <translation>Bilder anderer Größe als beim Start</translation>
    </message>
    <message>
        <source>Images that were cut off</source>
        <translation>Bilder, die abgeschnitten wurden</translation>
    </message>
</context>
<context>
    <name>zqviewer::LogPane</name>
    <message>
        <source>All cameras</source>
        <translation>Alle Kameras</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save…</source>
        <translation>Speichern…</translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation>Protokoll speichern</translation>
    </message>
    <message>
        <source>Text with tabs (*.log *.tsv *.txt);;All files (*)</source>
        <translation>Text mit Tabulatoren (*.log *.tsv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>zqviewer::LostBanner</name>
    <message>
        <source>&amp;Reconnect</source>
        <translation>&amp;Wieder verbinden</translation>
    </message>
    <message>
        <source>Find the camera again, or another one in its place</source>
        <translation>Die Kamera wieder finden, oder eine andere an ihrer Stelle</translation>
    </message>
    <message>
        <source>The values are those of %1.</source>
        <translation>Die Werte sind die von %1.</translation>
    </message>
    <message>
        <source>Looking for the camera…</source>
        <translation>Die Kamera wird gesucht…</translation>
    </message>
    <message>
        <source>Next try in %1 s.</source>
        <translation>Nächster Versuch in %1 s.</translation>
    </message>
</context>
<context>
    <name>zqviewer::OfferBar</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Verwerfen</translation>
    </message>
</context>
<context>
    <name>zqviewer::OpeningWindow</name>
    <message>
        <source>Simulated camera</source>
        <translation>Simulierte Kamera</translation>
    </message>
    <message>
        <source>&amp;Try again</source>
        <translation>&amp;Noch einmal versuchen</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>The camera&apos;s features cannot be read: %1</source>
        <translation>Die Einstellungen der Kamera können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The camera cannot be opened</source>
        <translation>Die Kamera kann nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>zqviewer::RestoreWindow</name>
    <message>
        <source>restored</source>
        <translation>wiederhergestellt</translation>
    </message>
    <message>
        <source>already so</source>
        <translation>schon so</translation>
    </message>
    <message>
        <source>adjusted by the camera</source>
        <translation>von der Kamera angepasst</translation>
    </message>
    <message>
        <source>refused</source>
        <translation>abgelehnt</translation>
    </message>
    <message>
        <source>unknown here</source>
        <translation>hier unbekannt</translation>
    </message>
    <message>
        <source>would be written</source>
        <translation>würde geschrieben</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>nicht bekannt</translation>
    </message>
    <message>
        <source>no settings</source>
        <translation>keine Einstellungen</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Wanted</source>
        <translation>Gewünscht</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ausgang</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>What would be restored</source>
        <translation>Was wiederhergestellt würde</translation>
    </message>
    <message>
        <source>Restored settings</source>
        <translation>Wiederhergestellte Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Also what holds</source>
        <translation>&amp;Auch was gilt</translation>
    </message>
</context>
<context>
    <name>zqviewer::SettingsMenu</name>
    <message>
        <source>&amp;Save settings…</source>
        <translation>Einstellungen &amp;speichern…</translation>
    </message>
    <message>
        <source>Save settings</source>
        <translation>Einstellungen speichern</translation>
    </message>
    <message>
        <source>&amp;Load settings…</source>
        <translation>Einstellungen &amp;laden…</translation>
    </message>
    <message>
        <source>Load settings</source>
        <translation>Einstellungen laden</translation>
    </message>
    <message>
        <source>&amp;Compare with a file…</source>
        <translation>Mit einer &amp;Datei vergleichen…</translation>
    </message>
    <message>
        <source>Compare settings</source>
        <translation>Einstellungen vergleichen</translation>
    </message>
    <message>
        <source>&amp;Remember the settings of now</source>
        <translation>Jetzige Einstellungen &amp;merken</translation>
    </message>
    <message>
        <source>Compare with those re&amp;membered</source>
        <translation>Mit den &amp;gemerkten vergleichen</translation>
    </message>
    <message>
        <source>&amp;Undo loading</source>
        <translation>Laden &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>L&amp;oad again</source>
        <translation>&amp;Wieder laden</translation>
    </message>
    <message>
        <source>Compare with another c&amp;amera</source>
        <translation>Mit einer anderen &amp;Kamera vergleichen</translation>
    </message>
    <message>
        <source>User s&amp;ets of the camera</source>
        <translation>&amp;Benutzersätze der Kamera</translation>
    </message>
    <message>
        <source>No files yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
    <message>
        <source>No other camera is open</source>
        <translation>Keine andere Kamera ist offen</translation>
    </message>
    <message>
        <source>&amp;Load…</source>
        <translation>&amp;Laden…</translation>
    </message>
    <message>
        <source>&amp;Save the settings of now into it…</source>
        <translation>Jetzige Einstellungen darin &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Compare with now…</source>
        <translation>Mit jetzt &amp;vergleichen…</translation>
    </message>
    <message>
        <source>The camera keeps none</source>
        <translation>Die Kamera hat keine</translation>
    </message>
    <message>
        <source>Camera settings (*.zqs *.txt *.pfs);;All files (*)</source>
        <translation>Kameraeinstellungen (*.zqs *.txt *.pfs);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Compare with a file</source>
        <translation>Mit einer Datei vergleichen</translation>
    </message>
    <message>
        <source>&amp;Undo loading %1</source>
        <translation>Laden von %1 &amp;zurücknehmen</translation>
    </message>
    <message>
        <source>Compare two &amp;files…</source>
        <translation>Zwei Da&amp;teien vergleichen…</translation>
    </message>
    <message>
        <source>First file</source>
        <translation>Erste Datei</translation>
    </message>
    <message>
        <source>Second file</source>
        <translation>Zweite Datei</translation>
    </message>
</context>
<context>
    <name>zqviewer::SettingsTable</name>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>zqviewer::SettingsTask</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>zqviewer::SettingsWork</name>
    <message>
        <source>Reading the settings was cancelled.</source>
        <translation>Das Lesen der Einstellungen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Reading the settings…</source>
        <translation>Einstellungen werden gelesen…</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) saved in %1</source>
        <translation>
            <numerusform>%n Einstellung in %1 gespeichert</numerusform>
            <numerusform>%n Einstellungen in %1 gespeichert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; the file names %n left out.</source>
        <translation>
            <numerusform>; die Datei nennt %n ausgelassene.</numerusform>
            <numerusform>; die Datei nennt %n ausgelassene.</numerusform>
        </translation>
    </message>
    <message>
        <source>Restoring the settings…</source>
        <translation>Einstellungen werden wiederhergestellt…</translation>
    </message>
    <message>
        <source>the settings of before</source>
        <translation>die Einstellungen von vorher</translation>
    </message>
    <message>
        <source>Remembered at %1</source>
        <translation>Gemerkt um %1</translation>
    </message>
    <message>
        <source>User set</source>
        <translation>Benutzersatz</translation>
    </message>
    <message>
        <source>Load “%1”? The settings of now are replaced.</source>
        <translation>„%1“ laden? Die jetzigen Einstellungen werden ersetzt.</translation>
    </message>
    <message>
        <source>Save into “%1”? What it holds is replaced.</source>
        <translation>In „%1“ speichern? Was er enthält, wird ersetzt.</translation>
    </message>
    <message>
        <source>To see what “%1” holds, the camera loads it and gets its settings of now back afterwards. Meanwhile it works with those of the set.</source>
        <translation>Um zu sehen, was „%1“ enthält, lädt ihn die Kamera und bekommt danach ihre jetzigen Einstellungen zurück. Bis dahin arbeitet sie mit denen des Satzes.</translation>
    </message>
    <message>
        <source>%1 was cancelled.</source>
        <translation>%1 wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 was loaded.</source>
        <translation>%1 wurde geladen.</translation>
    </message>
    <message>
        <source>The settings were saved into %1.</source>
        <translation>Die Einstellungen wurden in %1 gespeichert.</translation>
    </message>
</context>
<context>
    <name>zqviewer::StartPage</name>
    <message>
        <source>Open a camera</source>
        <translation>Kamera öffnen</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>Opened lately and found. Nothing is sent on a network before you look for cameras.</source>
        <translation>Zuletzt geöffnet und gefunden. Bevor Sie nach Kameras suchen, wird nichts in ein Netz gesendet.</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Öffnen</translation>
    </message>
    <message>
        <source>&amp;Find cameras</source>
        <translation>Kameras &amp;suchen</translation>
    </message>
    <message>
        <source>Open a &amp;description…</source>
        <translation>&amp;Beschreibung öffnen…</translation>
    </message>
    <message>
        <source>&amp;Simulated camera</source>
        <translation>Si&amp;mulierte Kamera</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Open a description</source>
        <translation>Beschreibung öffnen</translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip);;All files (*)</source>
        <translation>GenICam-Beschreibungen (*.xml *.zip);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Looking…</source>
        <translation>Suche läuft…</translation>
    </message>
    <message>
        <source>No cameras were found.</source>
        <translation>Es wurden keine Kameras gefunden.</translation>
    </message>
</context>
<context>
    <name>zqviewer::ViewerWindow</name>
    <message>
        <source>The camera&apos;s features cannot be read: %1</source>
        <translation>Die Einstellungen der Kamera können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open a camera…</source>
        <translation>Kamera &amp;öffnen…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>About &amp;zqviewer</source>
        <translation>Über &amp;zqviewer</translation>
    </message>
    <message>
        <source>About zqviewer</source>
        <translation>Über zqviewer</translation>
    </message>
    <message>
        <source>zqviewer %1: features and images of GenICam cameras.</source>
        <translation>zqviewer %1: Einstellungen und Bilder von GenICam-Kameras.</translation>
    </message>
    <message>
        <source>C&amp;amera</source>
        <translation>&amp;Kamera</translation>
    </message>
    <message>
        <source>Read all &amp;features again</source>
        <translation>Alle Einstellungen &amp;neu lesen</translation>
    </message>
    <message>
        <source>&amp;Reconnect</source>
        <translation>&amp;Wieder verbinden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>%1 (read-only)</source>
        <translation>%1 (nur lesend)</translation>
    </message>
    <message>
        <source>%1 was written, but could not be read back.</source>
        <translation>%1 wurde geschrieben, konnte aber nicht zurückgelesen werden.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Reconnect au&amp;tomatically</source>
        <translation>A&amp;utomatisch wieder verbinden</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>Before the loss</source>
        <translation>Vor dem Verlust</translation>
    </message>
    <message numerus="yes">
        <source>%n setting(s) differ from those before the camera was lost.</source>
        <translation>
            <numerusform>%n Einstellung ist anders als vor dem Verlust der Kamera.</numerusform>
            <numerusform>%n Einstellungen sind anders als vor dem Verlust der Kamera.</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Show and restore…</source>
        <translation>&amp;Zeigen und wiederherstellen…</translation>
    </message>
    <message>
        <source>Chunk data</source>
        <translation>Bilddaten (Chunks)</translation>
    </message>
</context>
<context>
    <name>zqviewer::Words</name>
    <message>
        <source>see the marked rows</source>
        <translation>siehe die markierten Zeilen</translation>
    </message>
    <message>
        <source>%1 features read.</source>
        <translation>%1 Einstellungen gelesen.</translation>
    </message>
    <message>
        <source>%1 of %2 features could not be read: %3</source>
        <translation>%1 von %2 Einstellungen konnten nicht gelesen werden: %3</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: %2.</source>
        <translation>„%1“ kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Cannot write &apos;%1&apos;: its name must end in .png, .tif or .tiff.</source>
        <translation>„%1“ kann nicht geschrieben werden: der Name muss auf .png, .tif oder .tiff enden.</translation>
    </message>
    <message>
        <source>%1 cannot be set: %2</source>
        <translation>%1 kann nicht gesetzt werden: %2</translation>
    </message>
    <message>
        <source>The camera has no %1.</source>
        <translation>Die Kamera hat kein %1.</translation>
    </message>
    <message>
        <source>%1 × %2 at (%3, %4)</source>
        <translation>%1 × %2 bei (%3, %4)</translation>
    </message>
    <message>
        <source>Reading the description</source>
        <translation>Beschreibung wird gelesen</translation>
    </message>
    <message>
        <source>simulated</source>
        <translation>simuliert</translation>
    </message>
</context>
</TS>
