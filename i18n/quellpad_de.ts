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
        <source>

(Changed %1 times while this message was showing.)</source>
        <translation>

(%1-mal geändert, während diese Meldung angezeigt wurde.)</translation>
    </message>
    <message>
        <source>An unexpected error ended the last action.</source>
        <translation>Ein unerwarteter Fehler hat die letzte Aktion beendet.</translation>
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
        <source>closed; not obeyed: %1 bad or cut-short frames, %2 bytes at other line settings, %3 bytes nobody took, %4 answer bytes not read</source>
        <translation>geschlossen; nicht befolgt: %1 fehlerhafte oder abgebrochene Telegramme, %2 Bytes mit anderen Leitungseinstellungen, %3 Bytes ohne Abnehmer, %4 nicht gelesene Antwortbytes</translation>
    </message>
    <message>
        <source>answer to </source>
        <translation>Antwort auf </translation>
    </message>
    <message>
        <source>not obeyed so far: %1 bad or cut-short frames, %2 bytes at other line settings, %3 bytes nobody took, %4 answer bytes not read</source>
        <translation>bisher nicht befolgt: %1 fehlerhafte oder abgebrochene Telegramme, %2 Bytes mit anderen Leitungseinstellungen, %3 Bytes ohne Abnehmer, %4 nicht gelesene Antwortbytes</translation>
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
        <source>turned away: %1 controllers are served already</source>
        <translation>abgewiesen: es werden bereits %1 Steuerungen bedient</translation>
    </message>
    <message>
        <source>controller connected</source>
        <translation>Steuerung verbunden</translation>
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
        <source>Serves Quellpad&apos;s simulated CCTV site (dome cameras in &quot;D&quot; and &quot;P&quot;, a switcher in &quot;ASCII&quot;, a multiplexer in &quot;MUX ASCII&quot;) to any controller on serial devices, a pseudo-terminal or TCP ports, all lines on the same equipment.</source>
        <translation>Bedient die simulierte CCTV-Anlage von Quellpad (Domekameras in „D“ und „P“, eine Kreuzschiene in „ASCII“, ein Multiplexer in „MUX ASCII“) für jede Steuerung über serielle Schnittstellen, ein Pseudo-Terminal oder TCP-Ports, alle Leitungen an denselben Geräten.</translation>
    </message>
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
</TS>
