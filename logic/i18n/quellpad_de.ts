<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddressTable</name>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Telegramme</translation>
    </message>
    <message>
        <source>Bad checksum</source>
        <translation>Prüfsumme falsch</translation>
    </message>
    <message>
        <source>Answers</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Last command</source>
        <translation>Letzter Befehl</translation>
    </message>
    <message>
        <source>Last seen</source>
        <translation>Zuletzt gehört</translation>
    </message>
</context>
<context>
    <name>BusDiagnosis</name>
    <message>
        <source>the line&apos;s settings</source>
        <translation>die Einstellungen der Leitung</translation>
    </message>
    <message>
        <source>Nothing heard in %1 s: no controller&apos;s bytes reach the bus. Check that the controller&apos;s transmit and receive are not swapped (its TX to the converter&apos;s RX), that the converter is powered, and the tap&apos;s own wiring.</source>
        <translation>In %1 s nichts gehört: Keine Bytes eines Steuergeräts erreichen den Bus. Prüfen Sie, ob Senden und Empfangen des Steuergeräts vertauscht sind (sein TX an RX des Wandlers), ob der Wandler Strom hat, und die Verdrahtung des Abgriffs selbst.</translation>
    </message>
    <message>
        <source>Still listening: nothing heard yet.</source>
        <translation>Höre weiter mit: noch nichts gehört.</translation>
    </message>
    <message>
        <source>Still listening: nothing forms a frame at %1 yet; trying other settings.</source>
        <translation>Höre weiter mit: bei %1 ergibt sich noch kein Telegramm; andere Einstellungen werden versucht.</translation>
    </message>
    <message>
        <source>%1 bytes heard and none forms a frame; %2 of them read as line breaks, as when the line rests at the wrong level: the two RS-485 wires are swapped. Swap A and B (+ and -) at the controller&apos;s end.</source>
        <translation>%1 Bytes gehört, keines ergibt ein Telegramm; %2 davon lesen sich als Leitungsunterbrechung, wie wenn die Leitung auf dem falschen Pegel ruht: Die beiden RS-485-Adern sind vertauscht. Tauschen Sie A und B (+ und -) am Steuergerät.</translation>
    </message>
    <message>
        <source>%1 bytes heard and none forms a frame at %2: the line&apos;s settings or language are none a listener knows, or the line is too noisy to carry anything. Check baud rate, parity and protocol at both ends, then the cable.</source>
        <translation>%1 Bytes gehört, keines ergibt bei %2 ein Telegramm: Einstellungen oder Sprache der Leitung sind keinem Mithörer bekannt, oder die Leitung ist zu gestört, um etwas zu tragen. Prüfen Sie Baudrate, Parität und Protokoll an beiden Enden, dann das Kabel.</translation>
    </message>
    <message>
        <source>Camera %1 is commanded %2 times and never answers as %1; answers as %3 come back %4 times instead: the receiver is set to answer as %3. Check the address of the receiver behind camera %1.</source>
        <translation>Kamera %1 wird %2-mal angesprochen und antwortet nie als %1; stattdessen kommen %4 Antworten als %3: Der Empfänger ist auf Adresse %3 eingestellt. Prüfen Sie die Adresse des Empfängers hinter Kamera %1.</translation>
    </message>
    <message>
        <source>Camera %1 is stopped %2 times right after it is commanded, and the same command resumes each time (%3 frames to it fail their check, as when two transmitters talk at once): a second controller drives camera %1. Find it (another keyboard, a recorder&apos;s PTZ port) and take it off the line or give it other cameras.</source>
        <translation>Kamera %1 wird %2-mal gleich nach einem Befehl gestoppt, und derselbe Befehl setzt jedes Mal wieder ein (%3 Telegramme an sie fallen bei der Prüfung durch, wie wenn zwei Sender zugleich sprechen): Ein zweites Steuergerät steuert Kamera %1. Finden Sie es (eine andere Tastatur, der PTZ-Anschluss eines Rekorders) und nehmen Sie es von der Leitung oder geben Sie ihm andere Kameras.</translation>
    </message>
    <message>
        <source>Two receivers answer as camera %1: their answers collide (%2 of %3 answers fail their check) while the other cameras answer cleanly. Find the second receiver set to %1 and give it its own address.</source>
        <translation>Zwei Empfänger antworten als Kamera %1: Ihre Antworten überlagern sich (%2 von %3 Antworten fallen bei der Prüfung durch), während die anderen Kameras sauber antworten. Finden Sie den zweiten auf %1 eingestellten Empfänger und geben Sie ihm eine eigene Adresse.</translation>
    </message>
    <message>
        <source>%1 of %2 frames fail their check, are cut short or are answered with garbage, spread over %3 addresses: the line is noisy. Check the termination (120 ohm at the two ends only), the cable&apos;s screen and ground, and runs beside mains.</source>
        <translation>%1 von %2 Telegrammen fallen bei der Prüfung durch, brechen ab oder werden mit Unlesbarem beantwortet, verteilt über %3 Adressen: Die Leitung ist gestört. Prüfen Sie den Abschluss (120 Ohm nur an den beiden Enden), Schirm und Erdung des Kabels und Verlegung neben Netzleitungen.</translation>
    </message>
    <message>
        <source>Camera %1 is commanded %2 times at %3 in D and never answers; cameras %4 answer: camera %1 hears but does not answer. Check its answer wiring (a 4-wire receiver&apos;s transmit pair) and that its answers are switched on.</source>
        <translation>Kamera %1 wird %2-mal mit %3 in D angesprochen und antwortet nie; die Kameras %4 antworten: Kamera %1 hört, antwortet aber nicht. Prüfen Sie ihre Antwortverdrahtung (das Sendepaar eines 4-Draht-Empfängers) und ob ihre Antworten eingeschaltet sind.</translation>
    </message>
    <message>
        <source>%1 commands to %2 cameras at %3 in D and no camera answers: the keyboard&apos;s line settings (baud rate, parity) or protocol differ from the receivers&apos;. Set them alike; with one camera on the line, it may instead hear but not answer.</source>
        <translation>%1 Befehle an %2 Kameras mit %3 in D, und keine Kamera antwortet: Leitungseinstellungen (Baudrate, Parität) oder Protokoll der Tastatur weichen von denen der Empfänger ab. Stellen Sie sie gleich ein; mit nur einer Kamera an der Leitung kann sie stattdessen hören, aber nicht antworten.</translation>
    </message>
    <message>
        <source>Healthy: %1 commands to %2 cameras in D at %3, %4 of them answered, none fails its check.</source>
        <translation>Fehlerfrei: %1 Befehle an %2 Kameras in D mit %3, %4 davon beantwortet, keiner fällt bei der Prüfung durch.</translation>
    </message>
    <message>
        <source>Healthy: %1 commands to %2 cameras in %3 at %4, none fails its check (P receivers do not answer, so one that hears nothing cannot be told from here).</source>
        <translation>Fehlerfrei: %1 Befehle an %2 Kameras in %3 mit %4, keiner fällt bei der Prüfung durch (P-Empfänger antworten nicht, daher ist einer, der nichts hört, von hier aus nicht zu erkennen).</translation>
    </message>
    <message>
        <source>Still listening: %1 frames heard so far, not yet enough to say.</source>
        <translation>Höre weiter mit: bisher %1 Telegramme gehört, noch nicht genug für ein Urteil.</translation>
    </message>
</context>
<context>
    <name>Capture</name>
    <message>
        <source>The capture &quot;%1&quot; cannot be written: %2.</source>
        <translation>Der Mitschnitt &quot;%1&quot; kann nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>The capture &quot;%1&quot; stopped: %2. It holds every whole block written before.</source>
        <translation>Der Mitschnitt &quot;%1&quot; wurde angehalten: %2. Er enthält jeden ganzen Block, der vorher geschrieben wurde.</translation>
    </message>
    <message>
        <source>The capture holds nothing a controller sent. %1</source>
        <translation>Der Mitschnitt enthält nichts, was ein Steuergerät gesendet hat. %1</translation>
    </message>
    <message>
        <source>This is no pcapng capture.</source>
        <translation>Dies ist kein pcapng-Mitschnitt.</translation>
    </message>
    <message>
        <source>This is no pcapng capture: %1</source>
        <translation>Dies ist kein pcapng-Mitschnitt: %1</translation>
    </message>
    <message>
        <source>The file ends inside a block at byte %1; it was read up to there.</source>
        <translation>Die Datei endet mitten in einem Block bei Byte %1; sie wurde bis dorthin gelesen.</translation>
    </message>
    <message>
        <source>The section at byte %1 has no byte-order mark.</source>
        <translation>Der Abschnitt bei Byte %1 hat keine Byte-Reihenfolge-Marke.</translation>
    </message>
    <message>
        <source>The block at byte %1 claims a length of %2 bytes, which no sound block has; the file was read up to there.</source>
        <translation>Der Block bei Byte %1 gibt eine Länge von %2 Byte an, die kein gültiger Block hat; die Datei wurde bis dorthin gelesen.</translation>
    </message>
    <message>
        <source>The block at byte %1 ends with another length than it starts with; the file was read up to there.</source>
        <translation>Der Block bei Byte %1 endet mit einer anderen Länge, als er beginnt; die Datei wurde bis dorthin gelesen.</translation>
    </message>
    <message>
        <source>The section header is too short.</source>
        <translation>Der Abschnittskopf ist zu kurz.</translation>
    </message>
    <message>
        <source>The section is of pcapng version %1, which is not read here.</source>
        <translation>Der Abschnitt hat die pcapng-Version %1, die hier nicht gelesen wird.</translation>
    </message>
    <message>
        <source>The file describes more than %1 lines.</source>
        <translation>Die Datei beschreibt mehr als %1 Leitungen.</translation>
    </message>
    <message>
        <source>An interface block at byte %1 is too short.</source>
        <translation>Ein Schnittstellenblock bei Byte %1 ist zu kurz.</translation>
    </message>
    <message>
        <source>An interface has a time resolution that makes no sense.</source>
        <translation>Eine Schnittstelle hat eine unsinnige Zeitauflösung.</translation>
    </message>
    <message>
        <source>A packet block is too short.</source>
        <translation>Ein Paketblock ist zu kurz.</translation>
    </message>
    <message>
        <source>A packet block claims more bytes than it holds.</source>
        <translation>Ein Paketblock gibt mehr Byte an, als er enthält.</translation>
    </message>
    <message>
        <source>%1 blocks of kinds not read here were stepped over.</source>
        <translation>%1 Blöcke einer hier nicht gelesenen Art wurden übersprungen.</translation>
    </message>
    <message>
        <source>%1 packets of lines the file does not describe, or not recorded by Quellpad, were skipped.</source>
        <translation>%1 Pakete von Leitungen, die die Datei nicht beschreibt oder die nicht Quellpad aufgezeichnet hat, wurden übersprungen.</translation>
    </message>
    <message>
        <source>%1 packets are timed before the packet before them on their line.</source>
        <translation>%1 Pakete liegen zeitlich vor dem Paket vor ihnen auf ihrer Leitung.</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Control keyboard for CCTV cameras, switchers and multiplexers.</source>
        <translation>Bedientastatur für CCTV-Kameras, Kreuzschienen und Multiplexer.</translation>
    </message>
    <message>
        <source>Displays this help and exits.</source>
        <translation>Zeigt diese Hilfe an und beendet das Programm.</translation>
    </message>
    <message>
        <source>Bind COM %1 to this device for this run: a serial device, &quot;sim&quot; for the simulated site, or tcp://host:port or rfc2217://host:port for a serial server. Wins over QUELLPAD_COM%1 and over the device chosen in the settings window.</source>
        <translation>Verbindet COM %1 für diesen Lauf mit diesem Gerät: eine serielle Schnittstelle, „sim“ für die simulierte Anlage oder tcp://host:port bzw. rfc2217://host:port für einen seriellen Server. Hat Vorrang vor QUELLPAD_COM%1 und vor dem im Einstellungsfenster gewählten Gerät.</translation>
    </message>
    <message>
        <source>device</source>
        <translation>gerät</translation>
    </message>
    <message>
        <source>Keep Settings.dat and Bindings.ini in this folder. Wins over QUELLPAD_SETTINGS_DIR.</source>
        <translation>Settings.dat und Bindings.ini in diesem Ordner ablegen. Hat Vorrang vor QUELLPAD_SETTINGS_DIR.</translation>
    </message>
    <message>
        <source>dir</source>
        <translation>ordner</translation>
    </message>
    <message>
        <source>Unexpected argument &apos;%1&apos;.</source>
        <translation>Unerwartetes Argument „%1“.</translation>
    </message>
    <message>
        <source>The value after &apos;--%1&apos; is empty.</source>
        <translation>Der Wert nach „--%1“ ist leer.</translation>
    </message>
</context>
<context>
    <name>CommandWords</name>
    <message>
        <source> on</source>
        <translation> ein</translation>
    </message>
    <message>
        <source> off</source>
        <translation> aus</translation>
    </message>
    <message>
        <source>stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>pan right</source>
        <translation>schwenken rechts</translation>
    </message>
    <message>
        <source>pan left</source>
        <translation>schwenken links</translation>
    </message>
    <message>
        <source>tilt up</source>
        <translation>neigen auf</translation>
    </message>
    <message>
        <source>tilt down</source>
        <translation>neigen ab</translation>
    </message>
    <message>
        <source>zoom in</source>
        <translation>Zoom nah</translation>
    </message>
    <message>
        <source>zoom out</source>
        <translation>Zoom weit</translation>
    </message>
    <message>
        <source>focus far</source>
        <translation>Fokus fern</translation>
    </message>
    <message>
        <source>focus near</source>
        <translation>Fokus nah</translation>
    </message>
    <message>
        <source>iris open</source>
        <translation>Blende auf</translation>
    </message>
    <message>
        <source>iris close</source>
        <translation>Blende zu</translation>
    </message>
    <message>
        <source>unknown </source>
        <translation>unbekannt </translation>
    </message>
    <message>
        <source>set preset</source>
        <translation>Preset speichern</translation>
    </message>
    <message>
        <source>clear preset</source>
        <translation>Preset löschen</translation>
    </message>
    <message>
        <source>go to preset</source>
        <translation>Preset anfahren</translation>
    </message>
    <message>
        <source>aux</source>
        <translation>Hilfsausgang</translation>
    </message>
    <message>
        <source>remote reset</source>
        <translation>Fern-Reset</translation>
    </message>
    <message>
        <source>zone</source>
        <translation>Zone</translation>
    </message>
    <message>
        <source> start</source>
        <translation> Anfang</translation>
    </message>
    <message>
        <source> end</source>
        <translation> Ende</translation>
    </message>
    <message>
        <source>character &apos;</source>
        <translation>Zeichen &apos;</translation>
    </message>
    <message>
        <source>&apos; at column </source>
        <translation>&apos; in Spalte </translation>
    </message>
    <message>
        <source>clear screen</source>
        <translation>Bildschirm löschen</translation>
    </message>
    <message>
        <source>zone scan on</source>
        <translation>Zonenscan ein</translation>
    </message>
    <message>
        <source>zone scan off</source>
        <translation>Zonenscan aus</translation>
    </message>
    <message>
        <source>record pattern</source>
        <translation>Muster aufzeichnen</translation>
    </message>
    <message>
        <source>end pattern</source>
        <translation>Musteraufzeichnung beenden</translation>
    </message>
    <message>
        <source>run pattern</source>
        <translation>Muster abspielen</translation>
    </message>
    <message>
        <source>zoom speed</source>
        <translation>Zoomgeschwindigkeit</translation>
    </message>
    <message>
        <source>focus speed</source>
        <translation>Fokusgeschwindigkeit</translation>
    </message>
    <message>
        <source>reset camera to defaults</source>
        <translation>Kamera auf Werkseinstellungen</translation>
    </message>
    <message>
        <source>auto focus</source>
        <translation>Autofokus</translation>
    </message>
    <message>
        <source>auto iris</source>
        <translation>automatische Blende</translation>
    </message>
    <message>
        <source>auto AGC</source>
        <translation>automatische Verstärkung (AGC)</translation>
    </message>
    <message>
        <source>backlight compensation</source>
        <translation>Gegenlichtkompensation</translation>
    </message>
    <message>
        <source>auto white balance</source>
        <translation>automatischer Weißabgleich</translation>
    </message>
    <message>
        <source>shutter speed code</source>
        <translation>Verschlusszeit-Code</translation>
    </message>
    <message>
        <source>red gain </source>
        <translation>Rotverstärkung </translation>
    </message>
    <message>
        <source>blue gain </source>
        <translation>Blauverstärkung </translation>
    </message>
    <message>
        <source>iris level</source>
        <translation>Blendenpegel</translation>
    </message>
    <message>
        <source>iris peak</source>
        <translation>Blendenspitze</translation>
    </message>
    <message>
        <source>query set-up</source>
        <translation>Einrichtung abfragen</translation>
    </message>
    <message>
        <source>set zero position</source>
        <translation>Nullposition setzen</translation>
    </message>
    <message>
        <source>set pan </source>
        <translation>Schwenkposition setzen </translation>
    </message>
    <message>
        <source>set tilt </source>
        <translation>Neigeposition setzen </translation>
    </message>
    <message>
        <source>set zoom </source>
        <translation>Zoom setzen </translation>
    </message>
    <message>
        <source>set magnification </source>
        <translation>Vergrößerung setzen </translation>
    </message>
    <message>
        <source>query pan</source>
        <translation>Schwenkposition abfragen</translation>
    </message>
    <message>
        <source>query tilt</source>
        <translation>Neigeposition abfragen</translation>
    </message>
    <message>
        <source>query zoom</source>
        <translation>Zoom abfragen</translation>
    </message>
    <message>
        <source>query magnification</source>
        <translation>Vergrößerung abfragen</translation>
    </message>
    <message>
        <source>query device type</source>
        <translation>Gerätetyp abfragen</translation>
    </message>
    <message>
        <source>query diagnostics</source>
        <translation>Diagnose abfragen</translation>
    </message>
    <message>
        <source>echo mode</source>
        <translation>Echomodus</translation>
    </message>
    <message>
        <source>prepare download</source>
        <translation>Download vorbereiten</translation>
    </message>
    <message>
        <source>start download</source>
        <translation>Download starten</translation>
    </message>
    <message>
        <source>pan is </source>
        <translation>Schwenkposition ist </translation>
    </message>
    <message>
        <source>tilt is </source>
        <translation>Neigeposition ist </translation>
    </message>
    <message>
        <source>zoom is </source>
        <translation>Zoom ist </translation>
    </message>
    <message>
        <source>magnification is </source>
        <translation>Vergrößerung ist </translation>
    </message>
    <message>
        <source>acknowledged</source>
        <translation>bestätigt</translation>
    </message>
    <message>
        <source>stop all</source>
        <translation>alles stoppen</translation>
    </message>
    <message>
        <source>monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>next camera</source>
        <translation>nächste Kamera</translation>
    </message>
    <message>
        <source>previous camera</source>
        <translation>vorige Kamera</translation>
    </message>
    <message>
        <source>alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source> (forward)</source>
        <translation> (vorwärts)</translation>
    </message>
    <message>
        <source>next alarm</source>
        <translation>nächster Alarm</translation>
    </message>
    <message>
        <source> (back)</source>
        <translation> (zurück)</translation>
    </message>
    <message>
        <source>previous alarm</source>
        <translation>voriger Alarm</translation>
    </message>
    <message>
        <source>trigger alarm</source>
        <translation>Alarm auslösen</translation>
    </message>
    <message>
        <source>reset alarm</source>
        <translation>Alarm zurücksetzen</translation>
    </message>
    <message>
        <source>reset all alarms</source>
        <translation>alle Alarme zurücksetzen</translation>
    </message>
    <message>
        <source>GPI</source>
        <translation>GPI</translation>
    </message>
    <message>
        <source>start macro</source>
        <translation>Makro starten</translation>
    </message>
    <message>
        <source>halt macro</source>
        <translation>Makro anhalten</translation>
    </message>
    <message>
        <source>start sequence</source>
        <translation>Sequenz starten</translation>
    </message>
    <message>
        <source>halt sequence</source>
        <translation>Sequenz anhalten</translation>
    </message>
    <message>
        <source>start tour</source>
        <translation>Tour starten</translation>
    </message>
    <message>
        <source>halt tour</source>
        <translation>Tour anhalten</translation>
    </message>
    <message>
        <source>label &quot;</source>
        <translation>Beschriftung &quot;</translation>
    </message>
    <message>
        <source> title &quot;</source>
        <translation> Titel &quot;</translation>
    </message>
    <message>
        <source>time </source>
        <translation>Uhrzeit </translation>
    </message>
    <message>
        <source>lock camera</source>
        <translation>Kamera sperren</translation>
    </message>
    <message>
        <source>unlock camera</source>
        <translation>Kamera freigeben</translation>
    </message>
    <message>
        <source>override camera lock</source>
        <translation>Kamerasperre übergehen</translation>
    </message>
    <message>
        <source>digital zoom</source>
        <translation>Digitalzoom</translation>
    </message>
    <message>
        <source>picture in picture</source>
        <translation>Bild im Bild</translation>
    </message>
    <message>
        <source>quad</source>
        <translation>Viererbild</translation>
    </message>
    <message>
        <source>nano</source>
        <translation>Nano</translation>
    </message>
    <message>
        <source>hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source> full screen</source>
        <translation> Vollbild</translation>
    </message>
    <message>
        <source>VCR eject</source>
        <translation>Rekorder Auswurf</translation>
    </message>
    <message>
        <source>VCR record</source>
        <translation>Rekorder Aufnahme</translation>
    </message>
    <message>
        <source>VCR pause</source>
        <translation>Rekorder Pause</translation>
    </message>
    <message>
        <source>VCR fast forward</source>
        <translation>Rekorder schneller Vorlauf</translation>
    </message>
    <message>
        <source>VCR rewind</source>
        <translation>Rekorder Rücklauf</translation>
    </message>
    <message>
        <source>VCR stop</source>
        <translation>Rekorder Stopp</translation>
    </message>
    <message>
        <source>VCR play</source>
        <translation>Rekorder Wiedergabe</translation>
    </message>
</context>
<context>
    <name>ErrorBoundary</name>
    <message>
        <source>An unexpected error ended the last action: %1</source>
        <translation>Ein unerwarteter Fehler hat die letzte Aktion beendet: %1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>An unexpected error ended the last action.</source>
        <translation>Ein unerwarteter Fehler hat die letzte Aktion beendet.</translation>
    </message>
    <message numerus="yes">
        <source>

(Changed %n times while this message was showing.)</source>
        <translation>
            <numerusform>

(%n-mal geändert, während diese Meldung angezeigt wurde.)</numerusform>
            <numerusform>

(%n-mal geändert, während diese Meldung angezeigt wurde.)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FrmAdvancedCommands</name>
    <message>
        <source>A value from 0 to 359.99 is expected.</source>
        <translation>Erwartet wird ein Wert von 0 bis 359,99.</translation>
    </message>
    <message>
        <source>Please enter a value between -180 and 180</source>
        <translation>Bitte einen Wert zwischen -180 und 180 eingeben</translation>
    </message>
    <message>
        <source>Expected magnification values are from 1 to 350.</source>
        <translation>Erwartet werden Vergrößerungen von 1 bis 350.</translation>
    </message>
    <message>
        <source>Warning!</source>
        <translation>Warnung!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Please enter the magnification value.</source>
        <translation>Bitte die Vergrößerung eingeben.</translation>
    </message>
    <message>
        <source>Either Zoom Limit or Set Zoom is empty, please enter the value</source>
        <translation>Zoomgrenze oder Zoom setzen ist leer, bitte den Wert eingeben</translation>
    </message>
    <message>
        <source>Either Zoom limit&apos;s or Set Zoom&apos;s values is not valid</source>
        <translation>Der Wert von Zoomgrenze oder Zoom setzen ist ungültig</translation>
    </message>
    <message>
        <source>Values From 0 to 359.99 Expected</source>
        <translation>Werte von 0 bis 359,99 erwartet</translation>
    </message>
    <message>
        <source>Values From -180 to 180 Expected</source>
        <translation>Werte von -180 bis 180 erwartet</translation>
    </message>
    <message>
        <source>A Value of 1 to 350 Expected</source>
        <translation>Ein Wert von 1 bis 350 erwartet</translation>
    </message>
</context>
<context>
    <name>FrmJoystick</name>
    <message>
        <source>Preset %1</source>
        <translation>Preset %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>The joystick&apos;s settings could not be kept: %1.</source>
        <translation>Die Joystick-Einstellungen konnten nicht gespeichert werden: %1.</translation>
    </message>
</context>
<context>
    <name>FrmMain</name>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Must be a number between 1 and 254.</source>
        <translation>Muss eine Zahl zwischen 1 und 254 sein.</translation>
    </message>
    <message>
        <source>Send Camera %1 Title</source>
        <translation>Titel von Kamera %1 senden</translation>
    </message>
    <message>
        <source>Camera number must be between 1 and 999999.</source>
        <translation>Die Kameranummer muss zwischen 1 und 999999 liegen.</translation>
    </message>
    <message>
        <source>Monitor number must be between 1 and 9999.</source>
        <translation>Die Monitornummer muss zwischen 1 und 9999 liegen.</translation>
    </message>
    <message>
        <source>Preset numbers range from 1 to 150.</source>
        <translation>Presetnummern reichen von 1 bis 150.</translation>
    </message>
    <message>
        <source>Must be a number between 1 and 9999.</source>
        <translation>Muss eine Zahl zwischen 1 und 9999 sein.</translation>
    </message>
    <message>
        <source>Alarm numbers must be greater than 0 and less than 9999.</source>
        <translation>Alarmnummern müssen größer als 0 und kleiner als 9999 sein.</translation>
    </message>
    <message>
        <source>Alarm numbers must be less than 9999</source>
        <translation>Alarmnummern müssen kleiner als 9999 sein</translation>
    </message>
    <message>
        <source>In D or P Protocol auxes must<byte value="xd"/>
be less than 9.</source>
        <translation>Im D- oder P-Protokoll müssen Aux-Nummern<byte value="xd"/>
kleiner als 9 sein.</translation>
    </message>
    <message>
        <source>In ASCII Protocol auxes must<byte value="xd"/>
be less than 65000.</source>
        <translation>Im ASCII-Protokoll müssen Aux-Nummern<byte value="xd"/>
kleiner als 65000 sein.</translation>
    </message>
    <message>
        <source>Aux ON</source>
        <translation>Aux EIN</translation>
    </message>
    <message>
        <source>Aux OFF</source>
        <translation>Aux AUS</translation>
    </message>
    <message>
        <source>Toggle Aux</source>
        <translation>Aux umschalten</translation>
    </message>
    <message>
        <source>GPI ON</source>
        <translation>GPI EIN</translation>
    </message>
    <message>
        <source>GPI OFF</source>
        <translation>GPI AUS</translation>
    </message>
    <message>
        <source>Toggle GPI</source>
        <translation>GPI umschalten</translation>
    </message>
    <message>
        <source>GPI %1 On</source>
        <translation>GPI %1 ein</translation>
    </message>
    <message>
        <source>GPI %1 Off</source>
        <translation>GPI %1 aus</translation>
    </message>
    <message>
        <source>Toggle GPI %1</source>
        <translation>GPI %1 umschalten</translation>
    </message>
    <message>
        <source>Aux %1 ON</source>
        <translation>Aux %1 EIN</translation>
    </message>
    <message>
        <source>Aux %1 OFF</source>
        <translation>Aux %1 AUS</translation>
    </message>
    <message>
        <source>Toggle Aux %1</source>
        <translation>Aux %1 umschalten</translation>
    </message>
    <message>
        <source>GPI %1, Aux %2 ON</source>
        <translation>GPI %1, Aux %2 EIN</translation>
    </message>
    <message>
        <source>GPI %1, Aux %2 OFF</source>
        <translation>GPI %1, Aux %2 AUS</translation>
    </message>
    <message>
        <source>Toggle GPI %1, Aux %2</source>
        <translation>GPI %1, Aux %2 umschalten</translation>
    </message>
    <message>
        <source>Start Macro</source>
        <translation>Makro starten</translation>
    </message>
    <message>
        <source>Halt Macro</source>
        <translation>Makro anhalten</translation>
    </message>
    <message>
        <source>Start Sequence</source>
        <translation>Sequenz starten</translation>
    </message>
    <message>
        <source>Halt Sequence</source>
        <translation>Sequenz anhalten</translation>
    </message>
    <message>
        <source>Start Tour</source>
        <translation>Tour starten</translation>
    </message>
    <message>
        <source>Halt Tour</source>
        <translation>Tour anhalten</translation>
    </message>
</context>
<context>
    <name>FrmTraffic</name>
    <message>
        <source>Text files (*.txt);;CSV files (*.csv)</source>
        <translation>Textdateien (*.txt);;CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>;;pcapng captures (*.pcapng)</source>
        <translation>;;pcapng-Mitschnitte (*.pcapng)</translation>
    </message>
</context>
<context>
    <name>FrmTypeCmnds</name>
    <message>
        <source><byte value="xd"/>
Type ASCII bytes and send them by pressing the&quot;Enter&quot; key.  For example; 1Ma would represent<byte value="xd"/>
the monitor 1 select command.  ASCII command<byte value="xd"/>
responses will appear below.</source>
        <translation><byte value="xd"/>
ASCII-Bytes eingeben und mit der Taste&quot;Enter&quot; senden.  Zum Beispiel steht 1Ma<byte value="xd"/>
für den Befehl „Monitor 1 wählen“.  Antworten auf<byte value="xd"/>
ASCII-Befehle erscheinen unten.</translation>
    </message>
    <message>
        <source><byte value="xd"/>
Type Hexadecimal bytes and send them by pressing the&quot;Enter&quot; key.  For example; FF 01 00 00 00 00 01 would<byte value="xd"/>
represent the camera 1 stop command in D Protocol.<byte value="xd"/>
The command response will appear below.</source>
        <translation><byte value="xd"/>
Hexadezimale Bytes eingeben und mit der Taste&quot;Enter&quot; senden.  Zum Beispiel steht FF 01 00 00 00 00 01<byte value="xd"/>
für den Stoppbefehl an Kamera 1 im D-Protokoll.<byte value="xd"/>
Die Antwort auf den Befehl erscheint unten.</translation>
    </message>
</context>
<context>
    <name>Gamepad</name>
    <message>
        <source>Joystick...</source>
        <translation>Joystick...</translation>
    </message>
    <message>
        <source>Joystick: unavailable</source>
        <translation>Joystick: nicht verfügbar</translation>
    </message>
    <message>
        <source>Joystick: </source>
        <translation>Joystick: </translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>The SDL library is incomplete.</source>
        <translation>Die SDL-Bibliothek ist unvollständig.</translation>
    </message>
    <message>
        <source>Joystick %1</source>
        <translation>Joystick %1</translation>
    </message>
</context>
<context>
    <name>JoystickSquare</name>
    <message>
        <source>Joystick</source>
        <translation>Joystick</translation>
    </message>
    <message>
        <source>Drag with the left button to pan and tilt: the further from the centre, the faster. A right click latches the knob to the pointer until the next right click.</source>
        <translation>Mit gedrückter linker Taste ziehen, um zu schwenken und zu neigen: je weiter von der Mitte, desto schneller. Ein Rechtsklick heftet den Knauf an den Zeiger bis zum nächsten Rechtsklick.</translation>
    </message>
    <message>
        <source>Joystick Knob</source>
        <translation>Joystick-Knauf</translation>
    </message>
</context>
<context>
    <name>Lens</name>
    <message>
        <source>Focus Near</source>
        <translation>Fokus nah</translation>
    </message>
    <message>
        <source>Focus Far</source>
        <translation>Fokus fern</translation>
    </message>
    <message>
        <source>Iris Open</source>
        <translation>Blende auf</translation>
    </message>
    <message>
        <source>Iris Close</source>
        <translation>Blende zu</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Zoom nah</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Zoom weit</translation>
    </message>
    <message>
        <source>%1 On</source>
        <translation>%1 ein</translation>
    </message>
    <message>
        <source>%1 Off</source>
        <translation>%1 aus</translation>
    </message>
</context>
<context>
    <name>NetworkLine</name>
    <message>
        <source>the line settings &quot;%1&quot; are not valid</source>
        <translation>die Leitungseinstellungen „%1“ sind ungültig</translation>
    </message>
    <message>
        <source>the binding names no server; write tcp://host:port or rfc2217://host:port</source>
        <translation>die Zuordnung nennt keinen Server; schreiben Sie tcp://host:port oder rfc2217://host:port</translation>
    </message>
    <message>
        <source>the port is not open</source>
        <translation>der Anschluss ist nicht geöffnet</translation>
    </message>
    <message>
        <source>the server has not answered yet and %1 bytes are already waiting for it</source>
        <translation>der Server hat noch nicht geantwortet, und schon warten %1 Bytes auf ihn</translation>
    </message>
    <message>
        <source>%1: the server does not read what is sent to it; %2 bytes wait for it, and what the keyboard sends is dropped until it reads again.</source>
        <translation>%1: Der Server liest nicht, was ihm gesendet wird; %2 Bytes warten auf ihn, und was die Tastatur sendet, wird verworfen, bis er wieder liest.</translation>
    </message>
    <message>
        <source>%1 works again: the server answers and the port is open.</source>
        <translation>%1 arbeitet wieder: Der Server antwortet und der Anschluss ist geöffnet.</translation>
    </message>
    <message>
        <source>%1: the server reads again, and what the keyboard sends leaves once more.</source>
        <translation>%1: Der Server liest wieder, und was die Tastatur sendet, geht wieder hinaus.</translation>
    </message>
    <message>
        <source>the server does not answer (%1)</source>
        <translation>der Server antwortet nicht (%1)</translation>
    </message>
    <message>
        <source>the connection to the server was lost (%1)</source>
        <translation>die Verbindung zum Server ist abgerissen (%1)</translation>
    </message>
    <message>
        <source>the server did not answer within %1 seconds</source>
        <translation>der Server hat nicht innerhalb von %1 Sekunden geantwortet</translation>
    </message>
    <message>
        <source>%1; it is tried again every %2 seconds and reopens by itself</source>
        <translation>%1; alle %2 Sekunden wird es erneut versucht, und der Anschluss öffnet sich von selbst wieder</translation>
    </message>
    <message>
        <source>the network module could not be loaded (%1)</source>
        <translation>das Netzwerkmodul konnte nicht geladen werden (%1)</translation>
    </message>
</context>
<context>
    <name>Numeric</name>
    <message>
        <source>Overflow: %1 does not fit %2.</source>
        <translation>Überlauf: %1 passt nicht in %2.</translation>
    </message>
    <message>
        <source>a byte (0 to 255)</source>
        <translation>ein Byte (0 bis 255)</translation>
    </message>
    <message>
        <source>a 16-bit number (-32768 to 32767)</source>
        <translation>eine 16-Bit-Zahl (-32768 bis 32767)</translation>
    </message>
    <message>
        <source>a 32-bit number</source>
        <translation>eine 32-Bit-Zahl</translation>
    </message>
</context>
<context>
    <name>PlainFile</name>
    <message>
        <source>%1 at %2 is not a plain file</source>
        <translation>%1 unter %2 ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>it is not a plain file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>PortBinding</name>
    <message>
        <source>The choice of device for COM %1 could not be kept: %2.</source>
        <translation>Die Gerätewahl für COM %1 konnte nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>The choice of device for COM %1 could not be kept: %2 could not be written. Check that its folder may be written.</source>
        <translation>Die Gerätewahl für COM %1 konnte nicht gespeichert werden: %2 ließ sich nicht schreiben. Prüfen Sie, ob in den Ordner geschrieben werden darf.</translation>
    </message>
    <message>
        <source>Choose what COM %1 is bound to: a serial device, the simulated site, or a network server as tcp://host:port or rfc2217://host:port.</source>
        <translation>Wählen Sie, womit COM %1 verbunden ist: eine serielle Schnittstelle, die simulierte Anlage oder ein Netzwerkserver als tcp://host:port oder rfc2217://host:port.</translation>
    </message>
    <message>
        <source>COM %1: &quot;%2&quot; names no server. Write it as tcp://host:port or rfc2217://host:port, with a port number from 1 to 65535.</source>
        <translation>COM %1: „%2“ nennt keinen Server. Schreiben Sie tcp://host:port oder rfc2217://host:port mit einer Portnummer von 1 bis 65535.</translation>
    </message>
</context>
<context>
    <name>PortChoiceBox</name>
    <message>
        <source>Simulated site</source>
        <translation>Simulierte Anlage</translation>
    </message>
    <message>
        <source>Set by %1</source>
        <translation>Gesetzt durch %1</translation>
    </message>
    <message>
        <source>Chosen here</source>
        <translation>Hier gewählt</translation>
    </message>
    <message>
        <source>The system&apos;s default</source>
        <translation>Vorgabe des Systems</translation>
    </message>
</context>
<context>
    <name>PortControl</name>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source> did not open; to work without equipment, choose &quot;Simulated site&quot; in Options &gt; Settings...</source>
        <translation> ließ sich nicht öffnen; um ohne Geräte zu arbeiten, wählen Sie „Simulierte Anlage“ unter Optionen &gt; Einstellungen...</translation>
    </message>
    <message>
        <source>Settings.dat at %1 is not a plain file, so it was neither read nor written. The keyboard starts on its defaults.</source>
        <translation>Settings.dat unter %1 ist keine gewöhnliche Datei und wurde daher weder gelesen noch geschrieben. Die Tastatur startet mit ihren Vorgaben.</translation>
    </message>
    <message>
        <source>, so it was neither read nor written. The ports and the joystick start on their defaults.</source>
        <translation>, daher wurde sie weder gelesen noch geschrieben. Die Anschlüsse und der Joystick starten mit ihren Vorgaben.</translation>
    </message>
    <message>
        <source>Settings.dat at %1 could not be read as six plain lines (%2)</source>
        <translation>Settings.dat unter %1 ließ sich nicht als sechs einfache Zeilen lesen (%2)</translation>
    </message>
    <message>
        <source>. It has been kept as %1, and a new Settings.dat holds the defaults for what could not be read.</source>
        <translation>. Sie wurde als %1 aufbewahrt, und eine neue Settings.dat enthält die Vorgaben für das, was nicht gelesen werden konnte.</translation>
    </message>
    <message>
        <source>, and %1, so it was left as it is. The keyboard starts on the defaults for what could not be read.</source>
        <translation>, und %1, daher blieb sie unverändert. Die Tastatur startet mit den Vorgaben für das, was nicht gelesen werden konnte.</translation>
    </message>
    <message>
        <source>Settings.dat holds the mode &quot;%1&quot;, which this keyboard does not know, so no command is sent and replies are dropped. Choose a mode in the Mode menu.</source>
        <translation>Settings.dat enthält den Modus „%1“, den diese Tastatur nicht kennt; daher wird kein Befehl gesendet und Antworten werden verworfen. Wählen Sie einen Modus im Menü Modus.</translation>
    </message>
    <message>
        <source> did not open. Bound by %1 or the command line; to work without equipment, start with %1=sim</source>
        <translation> ließ sich nicht öffnen. Gebunden durch %1 oder die Befehlszeile; um ohne Geräte zu arbeiten, starten Sie mit %1=sim</translation>
    </message>
    <message>
        <source>Nothing was sent: %1 and %2 are closed; </source>
        <translation>Nichts wurde gesendet: %1 und %2 sind geschlossen; </translation>
    </message>
    <message>
        <source>open COM %1 in the Options menu.</source>
        <translation>öffnen Sie COM %1 im Menü Optionen.</translation>
    </message>
    <message>
        <source>open COM 1 or COM 2 in the Options menu.</source>
        <translation>öffnen Sie COM 1 oder COM 2 im Menü Optionen.</translation>
    </message>
    <message>
        <source>bind one to a device in Options &gt; Settings...</source>
        <translation>binden Sie einen an ein Gerät unter Optionen &gt; Einstellungen...</translation>
    </message>
</context>
<context>
    <name>PortErrors</name>
    <message>
        <source>%1 could not be opened: there is no such port (%2).</source>
        <translation>%1 ließ sich nicht öffnen: Diesen Anschluss gibt es nicht (%2).</translation>
    </message>
    <message>
        <source>%1 could not be opened: it is in use by another program (%2).</source>
        <translation>%1 ließ sich nicht öffnen: Ein anderes Programm benutzt ihn (%2).</translation>
    </message>
    <message>
        <source>%1 could not be opened. %2</source>
        <translation>%1 ließ sich nicht öffnen. %2</translation>
    </message>
    <message>
        <source>%1 could not be opened: the device is not a serial port (%2).</source>
        <translation>%1 ließ sich nicht öffnen: Das Gerät ist keine serielle Schnittstelle (%2).</translation>
    </message>
    <message>
        <source>%1 could not be written: %2.</source>
        <translation>Auf %1 ließ sich nicht schreiben: %2.</translation>
    </message>
    <message>
        <source>%1 stopped working and has been closed: %2.</source>
        <translation>%1 arbeitet nicht mehr und wurde geschlossen: %2.</translation>
    </message>
    <message>
        <source>COM %1 (%2) is back and has been opened again.</source>
        <translation>COM %1 (%2) ist wieder da und wurde erneut geöffnet.</translation>
    </message>
    <message>
        <source>the line settings &quot;%1&quot; are not valid</source>
        <translation>die Leitungseinstellungen „%1“ sind ungültig</translation>
    </message>
    <message>
        <source>the device refused the line settings &quot;%1&quot; (%2)</source>
        <translation>das Gerät hat die Leitungseinstellungen „%1“ abgelehnt (%2)</translation>
    </message>
    <message>
        <source>COM %1 (%2): the device does not take what is sent to it; %3 bytes wait for it, and what the keyboard sends is dropped until it takes them.</source>
        <translation>COM %1 (%2): Das Gerät nimmt nicht an, was ihm gesendet wird; %3 Bytes warten darauf, und was die Tastatur sendet, wird verworfen, bis es sie annimmt.</translation>
    </message>
    <message>
        <source>the port is not open</source>
        <translation>der Anschluss ist nicht geöffnet</translation>
    </message>
    <message>
        <source>COM %1 (%2): the device takes what is sent again.</source>
        <translation>COM %1 (%2): Das Gerät nimmt wieder an, was gesendet wird.</translation>
    </message>
    <message>
        <source>the device was unplugged or hung up</source>
        <translation>das Gerät wurde abgezogen oder hat aufgelegt</translation>
    </message>
    <message>
        <source>Access to %1 was refused.</source>
        <translation>Der Zugriff auf %1 wurde verweigert.</translation>
    </message>
    <message>
        <source> Ask for membership of the group &quot;%1&quot;, which owns it, then log out and in again.</source>
        <translation> Bitten Sie um Aufnahme in die Gruppe „%1“, der es gehört, und melden Sie sich danach ab und wieder an.</translation>
    </message>
    <message>
        <source> Only its owner, %1, may open it. An administrator can grant access to it, for example with a udev rule that gives it a group to join.</source>
        <translation> Nur sein Eigentümer, %1, darf es öffnen. Ein Administrator kann Zugriff gewähren, etwa mit einer udev-Regel, die ihm eine Gruppe gibt, der man beitreten kann.</translation>
    </message>
    <message>
        <source> Ask for read and write access to it.</source>
        <translation> Bitten Sie um Lese- und Schreibzugriff darauf.</translation>
    </message>
    <message>
        <source>the program at its far end closed it. A pseudo-terminal is not opened again by itself: choose Options &gt; COM %1 once a program serves it again</source>
        <translation>das Programm an seinem anderen Ende hat es geschlossen. Ein Pseudo-Terminal wird nicht von selbst wieder geöffnet: wählen Sie Optionen &gt; COM %1, sobald ein Programm es wieder bedient</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
</context>
<context>
    <name>Retransmission</name>
    <message>
        <source>Retransmit count must above .05 and less than 61.</source>
        <translation>Der Wiederholungswert muss über 0,05 und unter 61 liegen.</translation>
    </message>
</context>
<context>
    <name>RowActionName</name>
    <message>
        <source>lower case</source>
        <comment>&quot;lower case&quot; where the words after the first of a phrase are written in lower case, as in English; &quot;as written&quot; otherwise</comment>
        <translation>as written</translation>
    </message>
</context>
<context>
    <name>Scanner</name>
    <message>
        <source>P receivers answer no query, so a scan in P would find nothing.</source>
        <translation>P-Empfänger beantworten keine Abfrage; eine Suche in P fände daher nichts.</translation>
    </message>
    <message>
        <source>The switcher answers only commands that switch or step pictures, so it cannot be scanned without moving something.</source>
        <translation>Die Kreuzschiene beantwortet nur Befehle, die Bilder schalten oder weiterschalten; sie lässt sich daher nicht absuchen, ohne etwas zu verändern.</translation>
    </message>
    <message>
        <source>The multiplexer answers nothing.</source>
        <translation>Der Multiplexer beantwortet nichts.</translation>
    </message>
    <message>
        <source>The scan stopped at address %1 (%2 baud): %3</source>
        <translation>Die Suche brach bei Adresse %1 (%2 Baud) ab: %3</translation>
    </message>
</context>
<context>
    <name>ServedSite</name>
    <message>
        <source>Simulated Site</source>
        <translation>Simulierte Anlage</translation>
    </message>
    <message>
        <source>serving at %1</source>
        <translation>bedient mit %1</translation>
    </message>
    <message>
        <source>answer to </source>
        <translation>Antwort auf </translation>
    </message>
    <message>
        <source>cannot serve the site on %1: %2</source>
        <translation>die Anlage kann nicht auf %1 bedient werden: %2</translation>
    </message>
    <message>
        <source>a new pseudo-terminal</source>
        <translation>einem neuen Pseudo-Terminal</translation>
    </message>
    <message>
        <source>controller connected at %1</source>
        <translation>Steuerung verbunden mit %1</translation>
    </message>
    <message>
        <source>controller left</source>
        <translation>Steuerung getrennt</translation>
    </message>
    <message>
        <source>the device has gone (unplugged or hung up); it is opened again when it returns</source>
        <translation>das Gerät ist verschwunden (abgezogen oder aufgelegt); es wird wieder geöffnet, sobald es zurückkehrt</translation>
    </message>
    <message>
        <source>the device is back</source>
        <translation>das Gerät ist wieder da</translation>
    </message>
    <message>
        <source>controller connected</source>
        <translation>Steuerung verbunden</translation>
    </message>
    <message>
        <source>closed; not obeyed: %1</source>
        <translation>geschlossen; nicht befolgt: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1 bad or cut-short frames</source>
        <translation>
            <numerusform>%1 fehlerhaftes oder abgebrochenes Telegramm</numerusform>
            <numerusform>%1 fehlerhafte oder abgebrochene Telegramme</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes at other line settings</source>
        <translation>
            <numerusform>%1 Byte mit anderen Leitungseinstellungen</numerusform>
            <numerusform>%1 Bytes mit anderen Leitungseinstellungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes nobody took</source>
        <translation>
            <numerusform>%1 Byte ohne Abnehmer</numerusform>
            <numerusform>%1 Bytes ohne Abnehmer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 answer bytes not read</source>
        <translation>
            <numerusform>%1 nicht gelesenes Antwortbyte</numerusform>
            <numerusform>%1 nicht gelesene Antwortbytes</numerusform>
        </translation>
    </message>
    <message>
        <source>not obeyed so far: %1</source>
        <translation>bisher nicht befolgt: %1</translation>
    </message>
    <message>
        <source>closed to make room: sent nothing for %1 s</source>
        <translation>geschlossen, um Platz zu schaffen: %1 s lang nichts gesendet</translation>
    </message>
    <message>
        <source>output lines dropped because standard output was read too slowly: %1 in all</source>
        <translation>Ausgabezeilen verworfen, weil die Standardausgabe zu langsam gelesen wurde: %1 insgesamt</translation>
    </message>
    <message>
        <source>output lines dropped because standard output is read too slowly: %1 since last told, %2 in all</source>
        <translation>Ausgabezeilen verworfen, weil die Standardausgabe zu langsam gelesen wird: %1 seit der letzten Meldung, %2 insgesamt</translation>
    </message>
    <message>
        <source>turned away: the port is full (--max-clients %1) and no client has been quiet for %2 s; more are turned away without a word until there is room</source>
        <translation>abgewiesen: der Port ist voll (--max-clients %1) und kein Client war %2 s lang still; weitere werden ohne Meldung abgewiesen, bis wieder Platz ist</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>line %1 is longer than %2 characters</source>
        <translation>Zeile %1 ist länger als %2 Zeichen</translation>
    </message>
    <message>
        <source>line %1 holds characters that are not plain text</source>
        <translation>Zeile %1 enthält Zeichen, die kein einfacher Text sind</translation>
    </message>
    <message>
        <source>it cannot be read: %1</source>
        <translation>sie lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source> and was not written.</source>
        <translation> und wurde nicht geschrieben.</translation>
    </message>
    <message>
        <source>Settings.dat could not be written to %1: %2.</source>
        <translation>Settings.dat ließ sich nicht nach %1 schreiben: %2.</translation>
    </message>
    <message>
        <source>it could not be kept as %1 (%2)</source>
        <translation>sie ließ sich nicht als %1 aufbewahren (%2)</translation>
    </message>
    <message>
        <source>Settings.dat.bak to Settings.dat.bak.%1 are all taken</source>
        <translation>Settings.dat.bak bis Settings.dat.bak.%1 sind alle belegt</translation>
    </message>
</context>
<context>
    <name>SimulatedLine</name>
    <message>
        <source>simulated site</source>
        <translation>simulierte Anlage</translation>
    </message>
    <message>
        <source>the line settings &quot;%1&quot; are not valid</source>
        <translation>die Leitungseinstellungen „%1“ sind ungültig</translation>
    </message>
    <message>
        <source>the port is not open</source>
        <translation>der Anschluss ist nicht geöffnet</translation>
    </message>
</context>
<context>
    <name>SiteCommandLine</name>
    <message>
        <source>Displays this help and exits.</source>
        <translation>Zeigt diese Hilfe an und beendet das Programm.</translation>
    </message>
    <message>
        <source>Serve on a new pseudo-terminal and print its path as the first line of output.</source>
        <translation>Auf einem neuen Pseudo-Terminal bedienen und dessen Pfad als erste Ausgabezeile ausgeben.</translation>
    </message>
    <message>
        <source>Serve raw bytes on this TCP port, to several controllers at once; may be given more than once.</source>
        <translation>Rohe Bytes auf diesem TCP-Port bedienen, für mehrere Steuerungen zugleich; darf mehrfach angegeben werden.</translation>
    </message>
    <message>
        <source>The line settings the equipment listens at (default 2400,n,8,1).</source>
        <translation>Die Leitungseinstellungen, mit denen die Geräte hören (Vorgabe 2400,n,8,1).</translation>
    </message>
    <message>
        <source>Dome cameras at these addresses, 1 to 255, such as 1-8 or 3,17,200. When any of --cameras, --switcher, --mux is given, only the equipment named listens; otherwise cameras 1 to 8, the switcher and the multiplexer.</source>
        <translation>Domekameras an diesen Adressen, 1 bis 255, etwa 1-8 oder 3,17,200. Ist eine der Optionen --cameras, --switcher, --mux angegeben, hören nur die genannten Geräte; sonst die Kameras 1 bis 8, die Kreuzschiene und der Multiplexer.</translation>
    </message>
    <message>
        <source>addresses</source>
        <translation>adressen</translation>
    </message>
    <message>
        <source>The switcher listens.</source>
        <translation>Die Kreuzschiene hört mit.</translation>
    </message>
    <message>
        <source>The multiplexer listens.</source>
        <translation>Der Multiplexer hört mit.</translation>
    </message>
    <message>
        <source>Print every event as one JSON object per line.</source>
        <translation>Jedes Ereignis als ein JSON-Objekt pro Zeile ausgeben.</translation>
    </message>
    <message>
        <source>Also open the Simulated Site window.</source>
        <translation>Zusätzlich das Fenster der simulierten Anlage öffnen.</translation>
    </message>
    <message>
        <source>Serial devices to serve on, such as /dev/ttyUSB0 or a /dev/serial/by-id name.</source>
        <translation>Serielle Schnittstellen, auf denen bedient wird, etwa /dev/ttyUSB0 oder ein Name unter /dev/serial/by-id.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a TCP port to listen on ([host:]port).</source>
        <translation>„%1“ ist kein TCP-Port zum Lauschen ([host:]port).</translation>
    </message>
    <message>
        <source>No line to serve on: name a device, --pty or --listen [host:]port.</source>
        <translation>Keine Leitung zum Bedienen: Nennen Sie ein Gerät, --pty oder --listen [host:]port.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; are not line settings (such as 2400,n,8,1).</source>
        <translation>„%1“ sind keine Leitungseinstellungen (etwa 2400,n,8,1).</translation>
    </message>
    <message>
        <source>&apos;%1&apos; are not camera addresses from 1 to 255 (such as 1-8 or 3,17,200).</source>
        <translation>„%1“ sind keine Kameraadressen von 1 bis 255 (etwa 1-8 oder 3,17,200).</translation>
    </message>
    <message>
        <source>TCP clients served at once on each --listen port (default %1). When all are served, a new client takes the place of one that has sent nothing for %2 s, or is turned away, which is told once.</source>
        <translation>So viele TCP-Clients werden je --listen-Port gleichzeitig bedient (Vorgabe %1). Sind alle Plätze belegt, nimmt ein neuer Client den Platz eines Clients ein, der %2 s lang nichts gesendet hat, oder wird abgewiesen; das wird einmal gemeldet.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number of clients from 1 to %2.</source>
        <translation>„%1“ ist keine Anzahl von Clients von 1 bis %2.</translation>
    </message>
    <message>
        <source>Serves Quellpad&apos;s simulated CCTV site (dome cameras in &quot;D&quot; and &quot;P&quot;, a switcher in &quot;ASCII&quot;, a multiplexer in &quot;MUX ASCII&quot;) to any controller on serial devices, a pseudo-terminal or TCP ports, all lines on the same equipment. Every event is one line of standard output; lines its reader has not taken yet wait in a backlog of %1 kB, and while that is full new lines are dropped whole and counted on standard error.</source>
        <translation>Bedient die simulierte CCTV-Anlage von Quellpad (Domekameras in „D“ und „P“, eine Kreuzschiene in „ASCII“, ein Multiplexer in „MUX ASCII“) für jede Steuerung über serielle Schnittstellen, ein Pseudo-Terminal oder TCP-Ports, alle Leitungen an denselben Geräten. Jedes Ereignis ist eine Zeile der Standardausgabe; Zeilen, die ihr Leser noch nicht abgenommen hat, warten in einem Rückstau von %1 kB, und solange dieser voll ist, werden neue Zeilen ganz verworfen und auf der Standardfehlerausgabe gezählt.</translation>
    </message>
    <message>
        <source>Record every served line to this pcapng capture, which Wireshark opens with Quellpad&apos;s dissector: each line an interface, every run of bytes a packet.</source>
        <translation>Jede bediente Leitung in diesen pcapng-Mitschnitt aufzeichnen, den Wireshark mit Quellpads Dissector öffnet: jede Leitung eine Schnittstelle, jede Bytefolge ein Paket.</translation>
    </message>
    <message>
        <source>Go on in a new file (file-2.pcapng, file-3.pcapng, ...) each time the capture holds this many megabytes.</source>
        <translation>In einer neuen Datei weitermachen (file-2.pcapng, file-3.pcapng, ...), sobald der Mitschnitt so viele Megabyte enthält.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number of megabytes for --record to rotate at.</source>
        <translation>&apos;%1&apos; ist keine Zahl von Megabyte, bei der --record eine neue Datei beginnt.</translation>
    </message>
    <message>
        <source>Play what the controller sent on the first line of this capture into the site, with its recorded timing, and end when done unless other lines are served.</source>
        <translation>Abspielen, was das Steuergerät auf der ersten Leitung dieses Mitschnitts gesendet hat, in die Anlage, mit dem aufgezeichneten Zeitverlauf, und danach enden, außer es werden weitere Leitungen bedient.</translation>
    </message>
    <message>
        <source>With --replay, play it onto this line instead: a serial device, a pseudo-terminal, tcp://host:port or rfc2217://host:port, at the capture&apos;s line settings or those of --line.</source>
        <translation>Mit --replay stattdessen auf diese Leitung abspielen: ein serielles Gerät, ein Pseudo-Terminal, tcp://host:port oder rfc2217://host:port, mit den Leitungseinstellungen des Mitschnitts oder denen von --line.</translation>
    </message>
    <message>
        <source>Replay at other line settings than the capture was recorded at.</source>
        <translation>Mit anderen Leitungseinstellungen abspielen, als der Mitschnitt aufgezeichnet wurde.</translation>
    </message>
    <message>
        <source>--replay-to needs a capture: --replay file.</source>
        <translation>--replay-to braucht einen Mitschnitt: --replay file.</translation>
    </message>
    <message>
        <source>Print where each camera of this capture pointed over time, as CSV (address, time, pan, tilt, zoom, whether a position answer said so), and exit.</source>
        <translation>Ausgeben, wohin jede Kamera dieses Mitschnitts im Lauf der Zeit zeigte, als CSV (Adresse, Zeit, Schwenk, Neigung, Zoom, ob eine Positionsantwort es sagte), und beenden.</translation>
    </message>
    <message>
        <source>How the site&apos;s receivers turn a speed into degrees per second, for --timeline: &quot;square&quot; (a creep rising on a square law to 100 °/s, the default) or &quot;linear&quot;.</source>
        <translation>Wie die Empfänger der Anlage eine Geschwindigkeit in Grad pro Sekunde umsetzen, für --timeline: &quot;square&quot; (ein Kriechen, quadratisch steigend bis 100 °/s, die Vorgabe) oder &quot;linear&quot;.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no speed curve of receivers (square or linear).</source>
        <translation>&apos;%1&apos; ist keine Geschwindigkeitskurve von Empfängern (square oder linear).</translation>
    </message>
    <message>
        <source>Wire the site with a fault, as the bus carries it; may be given more than once. answer-address=A:B: the camera at A answers as B; duplicate-address=A: two cameras at A, their answers collide; mute=A: the camera at A obeys but never answers; swapped-txrx: the controllers&apos; bytes never reach the bus; inverted-polarity: the controllers&apos; two RS-485 wires are swapped; noise=SHARE: that share of bytes (up to 0.5) corrupted or lost; second-controller=A: another controller keeps stopping camera A and now and then talks over the first. Equipment at other line settings than a controller is --line.</source>
        <translation>Die Anlage mit einem Fehler verdrahten, so wie der Bus ihn trägt; mehrfach möglich. answer-address=A:B: die Kamera an A antwortet als B; duplicate-address=A: zwei Kameras an A, ihre Antworten überlagern sich; mute=A: die Kamera an A gehorcht, antwortet aber nie; swapped-txrx: die Bytes der Steuergeräte erreichen den Bus nie; inverted-polarity: die beiden RS-485-Adern der Steuergeräte sind vertauscht; noise=ANTEIL: dieser Anteil der Bytes (bis 0.5) verfälscht oder verloren; second-controller=A: ein weiteres Steuergerät stoppt Kamera A immer wieder und spricht hin und wieder über das erste. Geräte mit anderen Leitungseinstellungen als ein Steuergerät: --line.</translation>
    </message>
    <message>
        <source>fault</source>
        <translation>fehler</translation>
    </message>
    <message>
        <source>Seed of the noise and collisions of --fault, so that a run repeats (default 1).</source>
        <translation>Startwert für Störungen und Überlagerungen von --fault, damit sich ein Lauf wiederholt (Vorgabe 1).</translation>
    </message>
    <message>
        <source>Offer a listen tap carrying every byte on the bus, controllers&apos; and receivers&apos;, as a listener there hears it: pty (a new pseudo-terminal, heard at the settings its listener sets; its path is printed as a line of its own, after --pty&apos;s) or tcp:[host:]port (heard at the equipment&apos;s settings). Nothing written to a tap reaches the bus.</source>
        <translation>Einen Abgriff zum Mithören anbieten, der jedes Byte auf dem Bus trägt, von Steuergeräten und Empfängern, so wie ein Mithörer dort es hört: pty (ein neues Pseudo-Terminal, gehört mit den Einstellungen, die sein Mithörer setzt; sein Pfad wird als eigene Zeile ausgegeben, nach dem von --pty) oder tcp:[host:]port (gehört mit den Einstellungen der Geräte). Nichts, was in einen Abgriff geschrieben wird, erreicht den Bus.</translation>
    </message>
    <message>
        <source>Serve nothing: listen on this line (a serial device, tcp://host:port) without writing to it and print, as it changes, what is wrong on the bus and why.</source>
        <translation>Nichts bereitstellen: auf dieser Leitung (eine serielle Schnittstelle, tcp://host:port) mithören, ohne auf sie zu schreiben, und bei jeder Änderung ausgeben, was auf dem Bus nicht stimmt und warum.</translation>
    </message>
    <message>
        <source>line</source>
        <translation>leitung</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a fault (such as %2).</source>
        <translation>„%1“ ist kein Fehler (etwa %2).</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a seed.</source>
        <translation>„%1“ ist kein Startwert.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a tap (pty or tcp:[host:]port).</source>
        <translation>„%1“ ist kein Abgriff (pty oder tcp:[host:]port).</translation>
    </message>
</context>
<context>
    <name>SiteDiagnose</name>
    <message>
        <source>%1  %2  sure %3 %  %4</source>
        <translation>%1  %2  sicher %3 %  %4</translation>
    </message>
</context>
<context>
    <name>SiteReplay</name>
    <message>
        <source>The capture &quot;%1&quot; cannot be read: %2.</source>
        <translation>Der Mitschnitt &quot;%1&quot; kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>The capture was recorded at %1 on %2, and the line to play it on is at %3; give --force to play it all the same.</source>
        <translation>Der Mitschnitt wurde mit %1 auf %2 aufgezeichnet, und die Leitung zum Abspielen steht auf %3; mit --force wird er trotzdem abgespielt.</translation>
    </message>
    <message>
        <source>replay of %1</source>
        <translation>Wiedergabe von %1</translation>
    </message>
    <message>
        <source>replayed; gaps off by %1 µs at the 99th percentile</source>
        <translation>abgespielt; Abstände im 99. Perzentil um %1 µs abweichend</translation>
    </message>
    <message>
        <source>replaying</source>
        <translation>Wiedergabe läuft</translation>
    </message>
</context>
<context>
    <name>SiteWords</name>
    <message>
        <source>via switcher: %1</source>
        <translation>über Kreuzschiene: %1</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>quad</source>
        <translation>Viererbild</translation>
    </message>
    <message>
        <source>picture in picture</source>
        <translation>Bild im Bild</translation>
    </message>
    <message>
        <source>nano</source>
        <translation>Nano</translation>
    </message>
    <message>
        <source>hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>digital zoom</source>
        <translation>Digitalzoom</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>gestoppt</translation>
    </message>
    <message>
        <source>playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>fast forward</source>
        <translation>schneller Vorlauf</translation>
    </message>
    <message>
        <source>rewinding</source>
        <translation>Rücklauf</translation>
    </message>
    <message>
        <source>tape ejected</source>
        <translation>Band ausgeworfen</translation>
    </message>
</context>
<context>
    <name>TrafficLog</name>
    <message>
        <source>Log started </source>
        <translation>Protokoll begonnen </translation>
    </message>
    <message>
        <source>Date	</source>
        <translation>Datum	</translation>
    </message>
    <message>
        <source>The traffic file &quot;%1&quot; cannot be written: %2.</source>
        <translation>Die Verkehrsdatei „%1“ lässt sich nicht schreiben: %2.</translation>
    </message>
    <message>
        <source>The traffic log &quot;%1&quot; cannot be written: %2.</source>
        <translation>Die Verkehrsprotokolldatei „%1“ lässt sich nicht schreiben: %2.</translation>
    </message>
    <message numerus="yes">
        <source>The traffic log &quot;%1&quot; cannot be written: %2. Logging has stopped after the last whole row; %n rows were not written.</source>
        <translation>
            <numerusform>Die Verkehrsprotokolldatei „%1“ lässt sich nicht schreiben: %2. Die Aufzeichnung endete nach der letzten vollständigen Zeile; %n Zeile wurde nicht geschrieben.</numerusform>
            <numerusform>Die Verkehrsprotokolldatei „%1“ lässt sich nicht schreiben: %2. Die Aufzeichnung endete nach der letzten vollständigen Zeile; %n Zeilen wurden nicht geschrieben.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrafficWords</name>
    <message>
        <source>pan position %1°</source>
        <translation>Schwenkposition %1°</translation>
    </message>
    <message>
        <source>tilt position %1°</source>
        <translation>Neigeposition %1°</translation>
    </message>
    <message>
        <source>zoom position %1</source>
        <translation>Zoomposition %1</translation>
    </message>
    <message>
        <source>magnification %1</source>
        <translation>Vergrößerung %1</translation>
    </message>
    <message>
        <source>camera %1</source>
        <translation>Kamera %1</translation>
    </message>
    <message>
        <source>switcher</source>
        <translation>Kreuzschiene</translation>
    </message>
    <message>
        <source>multiplexer</source>
        <translation>Multiplexer</translation>
    </message>
    <message>
        <source>not decoded: </source>
        <translation>nicht entschlüsselt: </translation>
    </message>
    <message>
        <source> ← camera %1: </source>
        <translation> ← Kamera %1: </translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>Mithören</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>gesendet</translation>
    </message>
    <message>
        <source>received</source>
        <translation>empfangen</translation>
    </message>
</context>
<context>
    <name>UnansweredQueries</name>
    <message>
        <source>COM %1: %2 queries running had no answer. Likely: the receiver&apos;s baud rate or parity differs from the port&apos;s, another protocol or address, transmit and receive swapped, or the two RS-485 wires swapped. Options &gt; Scan for Receivers finds who answers.</source>
        <translation>COM %1: %2 Abfragen nacheinander ohne Antwort. Wahrscheinlich: Baudrate oder Parität des Empfängers weichen vom Anschluss ab, anderes Protokoll oder andere Adresse, Senden und Empfangen vertauscht oder die beiden RS-485-Adern vertauscht. Optionen &gt; Empfänger suchen findet, wer antwortet.</translation>
    </message>
</context>
<context>
    <name>frmAbout</name>
    <message>
        <source>This application is designed to send the ASCII,<byte value="xd"/>
Direct D and Direct P Protocols via serial port.<byte value="xd"/>
To use this application select a mode of operation,<byte value="xd"/>
a port to use and the proper baud rate/parity<byte value="xd"/>
settings for your application.</source>
        <translation>Dieses Programm sendet die Protokolle ASCII,<byte value="xd"/>
Direct D und Direct P über eine serielle Schnittstelle.<byte value="xd"/>
Wählen Sie dazu eine Betriebsart,<byte value="xd"/>
einen Anschluss und die passenden Einstellungen<byte value="xd"/>
für Baudrate und Parität.</translation>
    </message>
    <message>
        <source>Warning:  Use this software at your own risk.  This<byte value="xd"/>
application has never been formally tested.  The<byte value="xd"/>
ASCII commands supported will vary from application<byte value="xd"/>
to application.</source>
        <translation>Warnung:  Benutzung auf eigene Gefahr.  Dieses<byte value="xd"/>
Programm wurde nie formell geprüft.  Welche<byte value="xd"/>
ASCII-Befehle unterstützt werden, ist von Anlage<byte value="xd"/>
zu Anlage verschieden.</translation>
    </message>
    <message>
        <source>Quellpad-  Version %1.%2.%3A</source>
        <translation>Quellpad-  Version %1.%2.%3A</translation>
    </message>
</context>
<context>
    <name>frmMenuControl</name>
    <message>
        <source>Enter menu commands via the arrow keys,<byte value="xd"/>
the &quot;O&quot; key for iris open, and the &quot;C&quot;<byte value="xd"/>
key for iris close.  Use the &quot;M&quot; key to<byte value="xd"/>
obtain access to the menus.</source>
        <translation>Menübefehle mit den Pfeiltasten eingeben,<byte value="xd"/>
Taste &quot;O&quot; für Blende auf und Taste &quot;C&quot;<byte value="xd"/>
für Blende zu.  Mit der Taste &quot;M&quot;<byte value="xd"/>
gelangen Sie in die Menüs.</translation>
    </message>
</context>
<context>
    <name>quellpad::FrmAdvancedCommands</name>
    <message>
        <source>Set Zero Position</source>
        <translation>Nullposition setzen</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Go To Zero Pan</source>
        <translation>Schwenk-Null anfahren</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Anfahren</translation>
    </message>
    <message>
        <source>Query Pan Position</source>
        <translation>Schwenkposition abfragen</translation>
    </message>
    <message>
        <source>Query</source>
        <translation>Abfragen</translation>
    </message>
    <message>
        <source>Query Tilt Position</source>
        <translation>Neigeposition abfragen</translation>
    </message>
    <message>
        <source>Query Zoom Position</source>
        <translation>Zoomposition abfragen</translation>
    </message>
    <message>
        <source>Query Magnification</source>
        <translation>Vergrößerung abfragen</translation>
    </message>
    <message>
        <source>Query Device Type</source>
        <translation>Gerätetyp abfragen</translation>
    </message>
    <message>
        <source>Query Diagnostic Info</source>
        <translation>Diagnosedaten abfragen</translation>
    </message>
    <message>
        <source>Activate Echo Mode</source>
        <translation>Echomodus einschalten</translation>
    </message>
    <message>
        <source>Activate</source>
        <translation>Einschalten</translation>
    </message>
    <message>
        <source>Prepare Download</source>
        <translation>Download vorbereiten</translation>
    </message>
    <message>
        <source>Prepare</source>
        <translation>Vorbereiten</translation>
    </message>
    <message>
        <source>Start Download</source>
        <translation>Download starten</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Advanced Commands</source>
        <translation>Erweiterte Befehle</translation>
    </message>
    <message>
        <source>Set Position</source>
        <translation>Position setzen</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Set Zoom</source>
        <translation>Zoom setzen</translation>
    </message>
    <message>
        <source>Set Pan Position</source>
        <translation>Schwenkposition setzen</translation>
    </message>
    <message>
        <source>Set </source>
        <translation>Setzen </translation>
    </message>
    <message>
        <source>Set Tilt Position</source>
        <translation>Neigeposition setzen</translation>
    </message>
    <message>
        <source>Set Magnification</source>
        <translation>Vergrößerung setzen</translation>
    </message>
    <message>
        <source>Enter Zoom Limit</source>
        <translation>Zoomgrenze eingeben</translation>
    </message>
    <message>
        <source>Set Zoom Position</source>
        <translation>Zoomposition setzen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>quellpad::FrmExtendedCommands</name>
    <message>
        <source>Auto Iris Level</source>
        <translation>Auto-Blende Pegel</translation>
    </message>
    <message>
        <source>Auto Iris Peak</source>
        <translation>Auto-Blende Spitze</translation>
    </message>
    <message>
        <source>R - Gain</source>
        <translation>R - Verstärkung</translation>
    </message>
    <message>
        <source>B - Gain</source>
        <translation>B - Verstärkung</translation>
    </message>
    <message>
        <source>Extended Commands</source>
        <translation>Zusätzliche Befehle</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Query</source>
        <translation>Abfragen</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>Auto Focus</source>
        <translation>Autofokus</translation>
    </message>
    <message>
        <source>Auto Iris</source>
        <translation>Auto-Blende</translation>
    </message>
    <message>
        <source>Auto AGC</source>
        <translation>Auto-AGC</translation>
    </message>
    <message>
        <source>Auto White Balance</source>
        <translation>Auto-Weißabgleich</translation>
    </message>
    <message>
        <source>Backlight Compensation</source>
        <translation>Gegenlichtkompensation</translation>
    </message>
    <message>
        <source>Reset Camera to Defaults</source>
        <translation>Kamera auf Werkseinstellungen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>%1 down</source>
        <translation>%1 ab</translation>
    </message>
    <message>
        <source>%1 up</source>
        <translation>%1 auf</translation>
    </message>
    <message>
        <source>Gain Limit</source>
        <translation>Verstärkungsgrenze</translation>
    </message>
    <message>
        <source>Gain Limit down</source>
        <translation>Verstärkungsgrenze ab</translation>
    </message>
    <message>
        <source>Gain Limit up</source>
        <translation>Verstärkungsgrenze auf</translation>
    </message>
    <message>
        <source>Shutter Speed</source>
        <translation>Verschlusszeit</translation>
    </message>
    <message>
        <source>NTSC shutter speed</source>
        <translation>NTSC-Verschlusszeit</translation>
    </message>
    <message>
        <source>PAL shutter speed</source>
        <translation>PAL-Verschlusszeit</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>quellpad::FrmJoystick</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Axis %1</source>
        <translation>Achse %1</translation>
    </message>
    <message>
        <source>Joystick</source>
        <translation>Joystick</translation>
    </message>
    <message>
        <source>Stick</source>
        <translation>Hebel</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>&amp;Pan</source>
        <translation>&amp;Schwenken</translation>
    </message>
    <message>
        <source>&amp;Tilt</source>
        <translation>&amp;Neigen</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>%1 Invert</source>
        <translation>%1 umkehren</translation>
    </message>
    <message>
        <source>&amp;Dead zone</source>
        <translation>&amp;Totzone</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Squared</source>
        <translation>Quadratisch</translation>
    </message>
    <message>
        <source>&amp;Response</source>
        <translation>&amp;Kennlinie</translation>
    </message>
    <message>
        <source>Buttons</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Button %1</source>
        <translation>Taste %1</translation>
    </message>
    <message>
        <source>No joystick connected</source>
        <translation>Kein Joystick angeschlossen</translation>
    </message>
    <message>
        <source>Controller: </source>
        <translation>Steuergerät: </translation>
    </message>
</context>
<context>
    <name>quellpad::FrmLabel</name>
    <message>
        <source>Preset/Zone Label or Camera Title</source>
        <translation>Preset-/Zonenbeschriftung oder Kameratitel</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Beschriftung</translation>
    </message>
</context>
<context>
    <name>quellpad::FrmMain</name>
    <message>
        <source>%1 more since the last message, the latest at %2</source>
        <translation>%1 weitere seit der letzten Meldung, die jüngste um %2</translation>
    </message>
    <message>
        <source>Zone</source>
        <translation>Zone</translation>
    </message>
    <message>
        <source>ASCII Response</source>
        <translation>ASCII-Antwort</translation>
    </message>
    <message>
        <source>P Response</source>
        <translation>P-Antwort</translation>
    </message>
    <message>
        <source>D Response</source>
        <translation>D-Antwort</translation>
    </message>
    <message>
        <source>Retransmit</source>
        <translation>Wiederhol-</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>intervall</translation>
    </message>
    <message>
        <source>Settings: %1</source>
        <translation>Einstellungen: %1</translation>
    </message>
    <message>
        <source>Quellpad - Settings (%1, %2, 8, 1)</source>
        <translation>Quellpad - Einstellungen (%1, %2, 8, 1)</translation>
    </message>
    <message>
        <source>open</source>
        <translation>offen</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>geschlossen</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Einstellungen...</translation>
    </message>
    <message>
        <source>Simulated Site...</source>
        <translation>Simulierte Anlage...</translation>
    </message>
    <message>
        <source>Traffic...</source>
        <translation>Datenverkehr...</translation>
    </message>
    <message>
        <source>Scan for Receivers...</source>
        <translation>Empfänger suchen...</translation>
    </message>
    <message>
        <source>Retransmit Timer</source>
        <translation>Wiederholungstimer</translation>
    </message>
    <message>
        <source>Control Lock</source>
        <translation>Tastenverriegelung</translation>
    </message>
    <message>
        <source>Arrow/Menu Control</source>
        <translation>Pfeil-/Menüsteuerung</translation>
    </message>
    <message>
        <source>Type Commands...</source>
        <translation>Befehle eingeben...</translation>
    </message>
    <message>
        <source>Advanced Commands...</source>
        <translation>Erweiterte Befehle...</translation>
    </message>
    <message>
        <source>Extended Commands...</source>
        <translation>Zusätzliche Befehle...</translation>
    </message>
    <message>
        <source>Set Label...</source>
        <translation>Beschriftung setzen...</translation>
    </message>
    <message>
        <source>Send ASCII Time Update</source>
        <translation>ASCII-Uhrzeit senden</translation>
    </message>
    <message>
        <source>Send Camera Title</source>
        <translation>Kameratitel senden</translation>
    </message>
    <message>
        <source>ASCII Command Display</source>
        <translation>ASCII-Befehlsanzeige</translation>
    </message>
    <message>
        <source>T Protocol Commands</source>
        <translation>T-Protokoll-Befehle</translation>
    </message>
    <message>
        <source>H Protocol Poll</source>
        <translation>H-Protokoll-Abfrage</translation>
    </message>
    <message>
        <source>Factory Calibration</source>
        <translation>Werkskalibrierung</translation>
    </message>
    <message>
        <source>Command Script</source>
        <translation>Befehlsskript</translation>
    </message>
    <message>
        <source>Log File</source>
        <translation>Protokolldatei</translation>
    </message>
    <message>
        <source>About Quellpad...</source>
        <translation>Über Quellpad...</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;Mode</source>
        <translation>&amp;Modus</translation>
    </message>
    <message>
        <source>D Protocol</source>
        <translation>D-Protokoll</translation>
    </message>
    <message>
        <source>P Protocol</source>
        <translation>P-Protokoll</translation>
    </message>
    <message>
        <source>H Protocol</source>
        <translation>H-Protokoll</translation>
    </message>
    <message>
        <source>T Protocol</source>
        <translation>T-Protokoll</translation>
    </message>
    <message>
        <source>&amp;Aux</source>
        <translation>&amp;Aux</translation>
    </message>
    <message>
        <source>Mac&amp;ro</source>
        <translation>Mak&amp;ro</translation>
    </message>
    <message>
        <source>&amp;Cam Lock</source>
        <translation>&amp;Kamerasperre</translation>
    </message>
    <message>
        <source>Lock Current Camera</source>
        <translation>Aktuelle Kamera sperren</translation>
    </message>
    <message>
        <source>Unlock Current Camera</source>
        <translation>Aktuelle Kamera freigeben</translation>
    </message>
    <message>
        <source>Override Camera Lock</source>
        <translation>Kamerasperre übergehen</translation>
    </message>
    <message>
        <source>Mu&amp;x</source>
        <translation>Mu&amp;x</translation>
    </message>
    <message>
        <source>Digital Zoom</source>
        <translation>Digitalzoom</translation>
    </message>
    <message>
        <source>Quad</source>
        <translation>Viererbild</translation>
    </message>
    <message>
        <source>Nano</source>
        <translation>Nano</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hex</translation>
    </message>
    <message>
        <source>Mux Camera</source>
        <translation>Mux-Kamera</translation>
    </message>
    <message>
        <source>Cam %1</source>
        <translation>Kam %1</translation>
    </message>
    <message>
        <source>&amp;VCR</source>
        <translation>&amp;VCR</translation>
    </message>
    <message>
        <source>Eject</source>
        <translation>Auswerfen</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Fast Forward</source>
        <translation>Schneller Vorlauf</translation>
    </message>
    <message>
        <source>Rewind</source>
        <translation>Rücklauf</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Mor&amp;e Commands</source>
        <translation>W&amp;eitere Befehle</translation>
    </message>
    <message>
        <source>Constant Motion</source>
        <translation>Dauerbewegung</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>COM1 Command Sent</source>
        <translation>COM1 gesendeter Befehl</translation>
    </message>
    <message>
        <source>COM2 Command Sent</source>
        <translation>COM2 gesendeter Befehl</translation>
    </message>
    <message>
        <source>Seconds between repeats, above .05 and below 61</source>
        <translation>Sekunden zwischen Wiederholungen, über 0,05 und unter 61</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objektiv</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Preset</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Gehe</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Setzen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Aux/GPI</source>
        <translation>Aux/GPI</translation>
    </message>
    <message>
        <source>Macro</source>
        <translation>Makro</translation>
    </message>
    <message>
        <source>Zone Start</source>
        <translation>Zonenanfang</translation>
    </message>
    <message>
        <source>Zone End</source>
        <translation>Zonenende</translation>
    </message>
    <message>
        <source>Zone Scan On</source>
        <translation>Zonenscan ein</translation>
    </message>
    <message>
        <source>Zone Scan Off</source>
        <translation>Zonenscan aus</translation>
    </message>
    <message>
        <source>Send Zone</source>
        <translation>Zone senden</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Prev Cam</source>
        <translation>Vorige Kam</translation>
    </message>
    <message>
        <source>Next Cam</source>
        <translation>Nächste Kam</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>Alarm</source>
        <translation>Alarm</translation>
    </message>
    <message>
        <source>One alarm, or a range such as 3..12</source>
        <translation>Ein Alarm oder ein Bereich wie 3..12</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Auslösen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Prev Alarm</source>
        <translation>Voriger Alarm</translation>
    </message>
    <message>
        <source>Next Alarm</source>
        <translation>Nächster Alarm</translation>
    </message>
    <message>
        <source>Camera Commands</source>
        <translation>Kamerabefehle</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Wenden</translation>
    </message>
    <message>
        <source>Remote Reset</source>
        <translation>Fern-Reset</translation>
    </message>
    <message>
        <source>Clear Screen</source>
        <translation>Bild löschen</translation>
    </message>
    <message>
        <source>Zoom Speed</source>
        <translation>Zoomtempo</translation>
    </message>
    <message>
        <source>Focus Speed</source>
        <translation>Fokustempo</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Wipe</source>
        <translation>Wischen</translation>
    </message>
    <message>
        <source>Poll</source>
        <translation>Abfrage</translation>
    </message>
    <message>
        <source>Wipe/</source>
        <translation>Wischen/</translation>
    </message>
    <message>
        <source>Wash</source>
        <translation>Waschen</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Response to ASCII Commands</source>
        <translation>Antwort auf ASCII-Befehle</translation>
    </message>
    <message>
        <source>Response to D Protocol Commands</source>
        <translation>Antwort auf Befehle im D-Protokoll</translation>
    </message>
    <message>
        <source>Response to P Protocol Commands</source>
        <translation>Antwort auf Befehle im P-Protokoll</translation>
    </message>
    <message>
        <source>Not offered while nothing is at %1; offered as soon as the device is there.</source>
        <translation>Nicht angeboten, solange unter %1 nichts ist; angeboten, sobald das Gerät da ist.</translation>
    </message>
    <message>
        <source>Not offered: %1 was not found when the ports were looked for; choose it again in Options &gt; Settings...</source>
        <translation>Nicht angeboten: %1 wurde bei der Suche nach Anschlüssen nicht gefunden; wählen Sie es erneut unter Optionen &gt; Einstellungen...</translation>
    </message>
</context>
<context>
    <name>quellpad::FrmTypeCmnds</name>
    <message>
        <source>Type Commands</source>
        <translation>Befehle eingeben</translation>
    </message>
    <message>
        <source>Command To Send</source>
        <translation>Zu sendender Befehl</translation>
    </message>
    <message>
        <source>Command Response</source>
        <translation>Antwort auf den Befehl</translation>
    </message>
    <message>
        <source>No closing quote found.</source>
        <translation>Kein schließendes Anführungszeichen gefunden.</translation>
    </message>
    <message>
        <source>Nothing was sent: the line holds characters that are no bytes of this mode.</source>
        <translation>Nichts wurde gesendet: Die Zeile enthält Zeichen, die in diesem Modus keine Bytes sind.</translation>
    </message>
</context>
<context>
    <name>quellpad::MenuKeyPicture</name>
    <message>
        <source>Right arrow</source>
        <translation>Pfeil rechts</translation>
    </message>
    <message>
        <source>Left arrow</source>
        <translation>Pfeil links</translation>
    </message>
    <message>
        <source>Up arrow</source>
        <translation>Pfeil auf</translation>
    </message>
    <message>
        <source>Down arrow</source>
        <translation>Pfeil ab</translation>
    </message>
    <message>
        <source>Iris open</source>
        <translation>Blende auf</translation>
    </message>
    <message>
        <source>Iris close</source>
        <translation>Blende zu</translation>
    </message>
    <message>
        <source>%1 held</source>
        <translation>%1 gehalten</translation>
    </message>
    <message>
        <source>Iris Open</source>
        <translation>Blende auf</translation>
    </message>
    <message>
        <source>Iris Close</source>
        <translation>Blende zu</translation>
    </message>
</context>
<context>
    <name>quellpad::frmAbout</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>System Info</source>
        <translation>Systeminfo</translation>
    </message>
    <message>
        <source>System Information Is Unavailable At This Time</source>
        <translation>Systeminformationen sind zurzeit nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>quellpad::frmMenuControl</name>
    <message>
        <source>Arrow/Menu Control</source>
        <translation>Pfeil-/Menüsteuerung</translation>
    </message>
</context>
<context>
    <name>quellpad::frmSettings</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Odd</source>
        <translation>Ungerade</translation>
    </message>
    <message>
        <source>Even</source>
        <translation>Gerade</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Baud Rate</source>
        <translation>Baudrate</translation>
    </message>
    <message>
        <source>Parity</source>
        <translation>Parität</translation>
    </message>
    <message>
        <source>Hold RTS High</source>
        <translation>RTS hoch halten</translation>
    </message>
    <message>
        <source>For use with &quot;port powered&quot; RS-232 to RS-422 converters</source>
        <translation>Für RS-232-zu-RS-422-Wandler, die aus der Schnittstelle gespeist werden</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>COM &amp;%1 device:</source>
        <translation>Gerät für COM &amp;%1:</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
</context>
<context>
    <name>quellpad::scan_window::FrmScan</name>
    <message>
        <source>Scan for Receivers</source>
        <translation>Empfänger suchen</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Anschluss:</translation>
    </message>
    <message>
        <source>COM 1</source>
        <translation>COM 1</translation>
    </message>
    <message>
        <source>COM 2</source>
        <translation>COM 2</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>Sp&amp;rache:</translation>
    </message>
    <message>
        <source>Bauds:</source>
        <translation>Baudraten:</translation>
    </message>
    <message>
        <source>&amp;From address:</source>
        <translation>&amp;Von Adresse:</translation>
    </message>
    <message>
        <source>&amp;To address:</source>
        <translation>&amp;Bis Adresse:</translation>
    </message>
    <message>
        <source>&amp;Wait for an answer (ms):</source>
        <translation>Auf Antwort &amp;warten (ms):</translation>
    </message>
    <message>
        <source>&amp;Scan</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>Abbre&amp;chen</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>Time left</source>
        <translation>Restzeit</translation>
    </message>
    <message>
        <source>Receivers that answered</source>
        <translation>Empfänger, die geantwortet haben</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>Baud</source>
        <translation>Baud</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Answer time (ms)</source>
        <translation>Antwortzeit (ms)</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>Scan sends a pan query to every address of the range on COM %1 (%2), which the keyboard stops using meanwhile; nothing moves, but the line is busy with it.</source>
        <translation>Die Suche sendet an jede Adresse des Bereichs auf COM %1 (%2) eine Abfrage der Schwenkposition; die Tastatur benutzt den Anschluss so lange nicht. Nichts bewegt sich, aber die Leitung ist damit belegt.</translation>
    </message>
    <message>
        <source>%1 s left</source>
        <translation>noch %1 s</translation>
    </message>
    <message>
        <source>COM %1</source>
        <translation>COM %1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>Done.</source>
        <translation>Fertig.</translation>
    </message>
</context>
<context>
    <name>quellpad::site_window::CameraView</name>
    <message>
        <source>Camera %1</source>
        <translation>Kamera %1</translation>
    </message>
    <message>
        <source>pan %1, tilt %2, zoom %3x</source>
        <translation>Schwenk %1, Neigung %2, Zoom %3x</translation>
    </message>
    <message>
        <source>CAM %1</source>
        <translation>KAM %1</translation>
    </message>
    <message>
        <source>P %1  T %2  %3x</source>
        <translation>S %1  N %2  %3x</translation>
    </message>
</context>
<context>
    <name>quellpad::site_window::FrmSimulatedSite</name>
    <message>
        <source>Simulated Site</source>
        <translation>Simulierte Anlage</translation>
    </message>
    <message>
        <source>COM %1</source>
        <translation>COM %1</translation>
    </message>
    <message>
        <source>No COM port is on the simulated site. Choose &quot;Simulated site&quot; for a COM port in Options &gt; Settings..., or start Quellpad with QUELLPAD_COM1=sim or QUELLPAD_COM2=sim (scripts/run does).</source>
        <translation>Kein COM-Anschluss ist mit der simulierten Anlage verbunden. Wählen Sie „Simulierte Anlage“ für einen COM-Anschluss unter Optionen &gt; Einstellungen... oder starten Sie Quellpad mit QUELLPAD_COM1=sim oder QUELLPAD_COM2=sim (wie scripts/run).</translation>
    </message>
</context>
<context>
    <name>quellpad::site_window::SitePanel</name>
    <message>
        <source>Camera &amp;addresses:</source>
        <translation>Kamera&amp;adressen:</translation>
    </message>
    <message>
        <source>Such as 1-8 or 3,17,200; each from 1 to 255</source>
        <translation>Etwa 1-8 oder 3,17,200; jede von 1 bis 255</translation>
    </message>
    <message>
        <source>&amp;Line settings:</source>
        <translation>&amp;Leitungseinstellungen:</translation>
    </message>
    <message>
        <source>Baud, parity, data bits, stop bits, such as 4800,n,8,1</source>
        <translation>Baud, Parität, Datenbits, Stoppbits, etwa 4800,n,8,1</translation>
    </message>
    <message>
        <source>Re&amp;wire</source>
        <translation>Neu &amp;verdrahten</translation>
    </message>
    <message>
        <source>Switcher (ASCII)</source>
        <translation>Kreuzschiene (ASCII)</translation>
    </message>
    <message>
        <source>Multiplexer (MUX ASCII)</source>
        <translation>Multiplexer (MUX ASCII)</translation>
    </message>
    <message>
        <source>Last commands of the &amp;switcher</source>
        <translation>Letzte Befehle der Kreuz&amp;schiene</translation>
    </message>
    <message>
        <source>Last commands of the &amp;multiplexer</source>
        <translation>Letzte Befehle des &amp;Multiplexers</translation>
    </message>
    <message>
        <source>Not rewired: &quot;%1&quot; are not camera addresses from 1 to 255.</source>
        <translation>Nicht neu verdrahtet: „%1“ sind keine Kameraadressen von 1 bis 255.</translation>
    </message>
    <message>
        <source>Not rewired: &quot;%1&quot; are not line settings.</source>
        <translation>Nicht neu verdrahtet: „%1“ sind keine Leitungseinstellungen.</translation>
    </message>
    <message>
        <source>Rewired: the equipment is at rest.</source>
        <translation>Neu verdrahtet: Die Geräte stehen still.</translation>
    </message>
    <message>
        <source>Last commands of &amp;camera %1 (click a picture for another)</source>
        <translation>Letzte Befehle von &amp;Kamera %1 (für eine andere ein Bild anklicken)</translation>
    </message>
    <message>
        <source>Mon %1 ← Cam %2</source>
        <translation>Mon %1 ← Kam %2</translation>
    </message>
    <message>
        <source> %1 on Mon %2</source>
        <translation> %1 auf Mon %2</translation>
    </message>
    <message>
        <source>&lt;br&gt;Active alarms: %1&lt;br&gt;Locked cameras: %2&lt;br&gt;Aux on: %3 &amp;nbsp; GPI on: %4</source>
        <translation>&lt;br&gt;Aktive Alarme: %1&lt;br&gt;Gesperrte Kameras: %2&lt;br&gt;Aux ein: %3 &amp;nbsp; GPI ein: %4</translation>
    </message>
    <message>
        <source>&lt;br&gt;Macro: %1 &amp;nbsp; Tour: %2 &amp;nbsp; Sequences:%3</source>
        <translation>&lt;br&gt;Makro: %1 &amp;nbsp; Tour: %2 &amp;nbsp; Sequenzen:%3</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source> none</source>
        <translation> keine</translation>
    </message>
    <message>
        <source>&lt;br&gt;Clock set to %1</source>
        <translation>&lt;br&gt;Uhr gestellt auf %1</translation>
    </message>
    <message>
        <source>Display: %1, camera %2
VCR: %3</source>
        <translation>Anzeige: %1, Kamera %2
VCR: %3</translation>
    </message>
</context>
<context>
    <name>quellpad::traffic_window::FrmTraffic</name>
    <message>
        <source>Traffic</source>
        <translation>Datenverkehr</translation>
    </message>
    <message>
        <source>Show:</source>
        <translation>Zeigen:</translation>
    </message>
    <message>
        <source>COM &amp;1</source>
        <translation>COM &amp;1</translation>
    </message>
    <message>
        <source>COM &amp;2</source>
        <translation>COM &amp;2</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>Mithören</translation>
    </message>
    <message>
        <source>&amp;Sent</source>
        <translation>&amp;Gesendet</translation>
    </message>
    <message>
        <source>&amp;Received</source>
        <translation>&amp;Empfangen</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>Cl&amp;ear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Sa&amp;ve...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>&amp;Log to file...</source>
        <translation>In &amp;Datei protokollieren...</translation>
    </message>
    <message>
        <source>Traffic rows</source>
        <translation>Verkehrszeilen</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Log file</source>
        <translation>Protokolldatei</translation>
    </message>
    <message>
        <source>Logging to %1</source>
        <translation>Protokoll nach %1</translation>
    </message>
    <message>
        <source>Log Traffic to File</source>
        <translation>Datenverkehr in Datei protokollieren</translation>
    </message>
    <message>
        <source>Save Traffic</source>
        <translation>Datenverkehr speichern</translation>
    </message>
    <message>
        <source> (paused)</source>
        <translation> (angehalten)</translation>
    </message>
    <message numerus="yes">
        <source>%n rows, %1 dropped%2</source>
        <translation>
            <numerusform>%n Zeile, %1 verworfen%2</numerusform>
            <numerusform>%n Zeilen, %1 verworfen%2</numerusform>
        </translation>
    </message>
    <message>
        <source>Ti&amp;meline...</source>
        <translation>Zeit&amp;verlauf...</translation>
    </message>
</context>
<context>
    <name>quellpad::traffic_window::ListenPanel</name>
    <message>
        <source>Listen o&amp;n:</source>
        <translation>Mithören a&amp;n:</translation>
    </message>
    <message>
        <source>/dev/ttyUSB1, tcp://host:port, rfc2217://host:port</source>
        <translation>/dev/ttyUSB1, tcp://host:port, rfc2217://host:port</translation>
    </message>
    <message>
        <source>Lis&amp;ten</source>
        <translation>Mi&amp;thören</translation>
    </message>
    <message>
        <source>Copy a&amp;ddresses</source>
        <translation>Adressen k&amp;opieren</translation>
    </message>
    <message>
        <source>Addresses heard</source>
        <translation>Gehörte Adressen</translation>
    </message>
    <message>
        <source>Not listening.</source>
        <translation>Es wird nicht mitgehört.</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>mit %1</translation>
    </message>
    <message>
        <source>Garbage under every line setting from 2400 to 19200 baud: no command language decodes what is heard.</source>
        <translation>Unlesbar bei jeder Leitungseinstellung von 2400 bis 19200 Baud: Keine Befehlssprache entschlüsselt, was zu hören ist.</translation>
    </message>
    <message>
        <source>Still listening%1: %2 valid frames so far.</source>
        <translation>Höre weiter mit%1: bisher %2 gültige Telegramme.</translation>
    </message>
    <message>
        <source>Garbage%1: no command language decodes what is heard.</source>
        <translation>Unlesbar%1: Keine Befehlssprache entschlüsselt, was zu hören ist.</translation>
    </message>
    <message>
        <source>Language %1%2; addresses spoken to: %3.</source>
        <translation>Sprache %1%2; angesprochene Adressen: %3.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>%1 (sure: %2 %)</source>
        <translation>%1 (sicher: %2 %)</translation>
    </message>
</context>
<context>
    <name>quellpad::traffic_window::TimelineView</name>
    <message>
        <source>Camera Timeline</source>
        <translation>Kamera-Zeitverlauf</translation>
    </message>
    <message>
        <source>&amp;Receivers:</source>
        <translation>&amp;Empfänger:</translation>
    </message>
    <message>
        <source>Square law, 100 °/s at 64 (the simulated site&apos;s)</source>
        <translation>Quadratisch, 100 °/s bei 64 (wie in der simulierten Anlage)</translation>
    </message>
    <message>
        <source>Linear, 100 °/s at 64</source>
        <translation>Linear, 100 °/s bei 64</translation>
    </message>
    <message>
        <source>&amp;Save CSV...</source>
        <translation>CSV &amp;speichern...</translation>
    </message>
    <message>
        <source>Camera positions</source>
        <translation>Kamerapositionen</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Pan °</source>
        <translation>Schwenk °</translation>
    </message>
    <message>
        <source>Tilt °</source>
        <translation>Neigung °</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>answer</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>commands</source>
        <translation>Befehlen</translation>
    </message>
    <message>
        <source>Save Camera Timeline</source>
        <translation>Kamera-Zeitverlauf speichern</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>The camera timeline &quot;%1&quot; cannot be written: %2.</source>
        <translation>Der Kamera-Zeitverlauf &quot;%1&quot; kann nicht geschrieben werden: %2.</translation>
    </message>
</context>
</TS>
