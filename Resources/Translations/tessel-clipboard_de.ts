<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibleHistoryRow</name>
    <message>
        <source>%1, pinned, %2</source>
        <extracomment>An entry&apos;s kind and the time at which it was copied.</extracomment>
        <translation>%1, angeheftet, %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Cmd + Shift + V</source>
        <translation>Cmd + Umschalt + V</translation>
    </message>
    <message>
        <source>Ctrl + Shift + V</source>
        <translation>Strg + Umschalt + V</translation>
    </message>
    <message>
        <source>Cmd + Option + V</source>
        <translation>Cmd + Option + V</translation>
    </message>
    <message>
        <source>Infinity</source>
        <translation>Unbegrenzt</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Tessel Clipboard</source>
        <translation>Tessel Clipboard</translation>
    </message>
    <message>
        <source>Open History</source>
        <translation>Verlauf öffnen</translation>
    </message>
    <message>
        <source>Clear history</source>
        <translation>Verlauf leeren</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Check for Updates...</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>SecondaryWindows</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>About Tessel Clipboard</source>
        <translation>Über Tessel Clipboard</translation>
    </message>
    <message>
        <source>Setup Required</source>
        <translation>Einrichtung erforderlich</translation>
    </message>
</context>
<context>
    <name>TrustPrompt</name>
    <message>
        <source>Paste it yourself</source>
        <translation>Bitte selbst einfügen</translation>
    </message>
    <message>
        <source>The entry is on the clipboard. In this session programs cannot send keys to each other, so Tessel Clipboard cannot paste it for you: press Ctrl+V where you want it.</source>
        <translation>Der Eintrag liegt in der Zwischenablage. In dieser Sitzung können Programme einander keine Tasten senden, daher kann Tessel Clipboard ihn nicht selbst einfügen: Strg+V an der gewünschten Stelle fügt ihn ein.</translation>
    </message>
</context>
<context>
    <name>UpdateTexts</name>
    <message>
        <source>Checking for updates…</source>
        <translation>Es wird nach Updates gesucht …</translation>
    </message>
    <message>
        <source>You&apos;re up to date!</source>
        <translation>Sie haben die neueste Version!</translation>
    </message>
    <message>
        <source>Tessel Clipboard %1 is the newest version available.</source>
        <translation>Tessel Clipboard %1 ist die neueste Version, die es gibt.</translation>
    </message>
    <message>
        <source>Tessel Clipboard %1 is now available. You have %2.</source>
        <translation>Tessel Clipboard %1 ist erschienen. Sie haben %2.</translation>
    </message>
    <message>
        <source>A new version of Tessel Clipboard is available!</source>
        <translation>Es gibt eine neue Version von Tessel Clipboard!</translation>
    </message>
    <message>
        <source>Get it where you got this one.</source>
        <translation>Sie bekommen sie dort, wo Sie diese bekommen haben.</translation>
    </message>
    <message>
        <source>Updates come with your system</source>
        <translation>Updates kommen mit Ihrem System</translation>
    </message>
    <message>
        <source>Tessel Clipboard is updated together with the other packages of your system. Look for updates where you do so for those.</source>
        <translation>Tessel Clipboard wird zusammen mit den anderen Paketen Ihres Systems aktualisiert. Suchen Sie dort nach Updates, wo Sie es auch für diese tun.</translation>
    </message>
    <message>
        <source>The update server cannot be reached</source>
        <translation>Der Update-Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>Check your connection to the Internet, and try again.</source>
        <translation>Prüfen Sie Ihre Verbindung zum Internet, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The connection to the update server is not secure</source>
        <translation>Die Verbindung zum Update-Server ist nicht sicher</translation>
    </message>
    <message>
        <source>Perhaps this network wants you to log in first, or your computer&apos;s clock is wrong. Otherwise somebody may be reading along. Try again later, or from another network.</source>
        <translation>Vielleicht verlangt dieses Netz erst eine Anmeldung, oder die Uhr Ihres Computers geht falsch. Sonst liest womöglich jemand mit. Versuchen Sie es später noch einmal, oder aus einem anderen Netz.</translation>
    </message>
    <message>
        <source>The list of versions is not there</source>
        <translation>Die Liste der Versionen ist nicht da</translation>
    </message>
    <message>
        <source>The update server does not have it where it should be. Try again later.</source>
        <translation>Der Update-Server hat sie nicht dort, wo sie sein sollte. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The update server has a problem</source>
        <translation>Der Update-Server hat ein Problem</translation>
    </message>
    <message>
        <source>Try again later.</source>
        <translation>Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The update server takes too long to answer</source>
        <translation>Der Update-Server braucht zu lange für eine Antwort</translation>
    </message>
    <message>
        <source>The list of versions is too large</source>
        <translation>Die Liste der Versionen ist zu groß</translation>
    </message>
    <message>
        <source>It has not been read. Try again later.</source>
        <translation>Sie wurde nicht gelesen. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The list of versions cannot be trusted</source>
        <translation>Der Liste der Versionen ist nicht zu trauen</translation>
    </message>
    <message>
        <source>It is not signed by the publisher of Tessel Clipboard, and has not been read. Try again later.</source>
        <translation>Sie ist nicht vom Herausgeber von Tessel Clipboard unterschrieben und wurde nicht gelesen. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The list of versions is damaged</source>
        <translation>Die Liste der Versionen ist beschädigt</translation>
    </message>
    <message>
        <source>Updates are not set up correctly</source>
        <translation>Updates sind nicht richtig eingerichtet</translation>
    </message>
    <message>
        <source>The file updates.json, which came with this installation, cannot be understood. Ask whoever installed Tessel Clipboard.</source>
        <translation>Die Datei updates.json, die mit dieser Installation kam, ist nicht zu verstehen. Fragen Sie, wer Tessel Clipboard installiert hat.</translation>
    </message>
    <message>
        <source>A part of Tessel Clipboard does not work</source>
        <translation>Ein Teil von Tessel Clipboard funktioniert nicht</translation>
    </message>
    <message>
        <source>The program that loads the list of versions is missing or damaged. Install Tessel Clipboard again.</source>
        <translation>Das Programm, das die Liste der Versionen lädt, fehlt oder ist beschädigt. Installieren Sie Tessel Clipboard neu.</translation>
    </message>
</context>
<context>
    <name>tessel::AboutView</name>
    <message>
        <source>Tessel Clipboard</source>
        <translation>Tessel Clipboard</translation>
    </message>
    <message>
        <source>Tessel clipboard history for macOS.</source>
        <translation>Tessel-Zwischenablageverlauf für macOS.</translation>
    </message>
    <message>
        <source>Current beta supports text and images.</source>
        <translation>Die aktuelle Beta unterstützt Texte und Bilder.</translation>
    </message>
</context>
<context>
    <name>tessel::AccessibilityOnboardingView</name>
    <message>
        <source>Enable Accessibility Access</source>
        <translation>Bedienungshilfen-Zugriff erlauben</translation>
    </message>
    <message>
        <source>Tessel Clipboard needs Accessibility permission to paste selected items automatically into other apps.</source>
        <translation>Tessel Clipboard benötigt Zugriff auf die Bedienungshilfen, um ausgewählte Einträge automatisch in andere Apps einzusetzen.</translation>
    </message>
    <message>
        <source>How to enable it:</source>
        <translation>So geht es:</translation>
    </message>
    <message>
        <source>1. Open Privacy &amp; Security settings</source>
        <translation>1. Einstellungen „Datenschutz &amp; Sicherheit“ öffnen</translation>
    </message>
    <message>
        <source>2. Go to Accessibility</source>
        <translation>2. Zu „Bedienungshilfen“ gehen</translation>
    </message>
    <message>
        <source>3. Turn on access for Tessel Clipboard</source>
        <translation>3. Zugriff für Tessel Clipboard einschalten</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Bedienungshilfen öffnen</translation>
    </message>
</context>
<context>
    <name>tessel::ClipboardListView</name>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt kopiert</translation>
    </message>
</context>
<context>
    <name>tessel::ClipboardPanelView</name>
    <message>
        <source>Clipboard history</source>
        <translation>Verlauf der Zwischenablage</translation>
    </message>
</context>
<context>
    <name>tessel::ClipboardPanelWindow</name>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
</context>
<context>
    <name>tessel::CloseButton</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>tessel::EmptyStateView</name>
    <message>
        <source>Clipboard is empty</source>
        <translation>Die Zwischenablage ist leer</translation>
    </message>
    <message>
        <source>Copy something and it will appear here.</source>
        <translation>Was kopiert wird, erscheint hier.</translation>
    </message>
</context>
<context>
    <name>tessel::PanelHeader</name>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Clear all</source>
        <translation>Alle löschen</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tessel::RowContextMenu</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Loslösen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>tessel::SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Automatically start Tessel Clipboard when you sign in.</source>
        <translation>Tessel Clipboard startet mit der Anmeldung von selbst.</translation>
    </message>
    <message>
        <source>Keyboard shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>On a PC keyboard Cmd is the Super key, which is also called the Windows key, and Option is the Alt key.</source>
        <translation>Auf einer PC-Tastatur ist Cmd die Super-Taste, auch Windows-Taste genannt, und Option die Alt-Taste.</translation>
    </message>
    <message>
        <source>If one preset conflicts in your apps, switch to another.</source>
        <translation>Ist ein Kürzel in einem Programm schon belegt, hilft ein anderes.</translation>
    </message>
    <message>
        <source>Quick clear policy</source>
        <translation>Automatisches Löschen</translation>
    </message>
    <message>
        <source>Automatically remove older history items.</source>
        <translation>Entfernt ältere Einträge von selbst.</translation>
    </message>
    <message>
        <source>Panel transparency</source>
        <translation>Transparenz des Panels</translation>
    </message>
    <message>
        <source>Lower value = more transparent, higher value = darker panel.</source>
        <translation>Kleinerer Wert = durchsichtiger, größerer Wert = dunkler.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>tessel::ShortcutCard</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Open history</source>
        <translation>Verlauf öffnen</translation>
    </message>
    <message>
        <source>Navigate items</source>
        <translation>Einträge wechseln</translation>
    </message>
    <message>
        <source>Up / Down</source>
        <translation>Auf / Ab</translation>
    </message>
    <message>
        <source>Paste selected</source>
        <translation>Auswahl einsetzen</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Close panel</source>
        <translation>Panel schließen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
</context>
<context>
    <name>tessel::TrayNoticeView</name>
    <message>
        <source>Super+Shift+V</source>
        <translation>Super+Umschalt+V</translation>
    </message>
    <message>
        <source>Ctrl+Shift+V</source>
        <translation>Strg+Umschalt+V</translation>
    </message>
    <message>
        <source>Super+Alt+V</source>
        <translation>Super+Alt+V</translation>
    </message>
    <message>
        <source>Tessel Clipboard is running</source>
        <translation>Tessel Clipboard läuft</translation>
    </message>
    <message>
        <source>Press %1 to open the history.</source>
        <translation>%1 öffnet den Verlauf.</translation>
    </message>
    <message>
        <source>This desktop has no tray for the icon. Starting Tessel Clipboard again opens the history, too. Its entry among your applications leads to the settings and to its end, and so do these commands:
tessel-clipboard --settings
tessel-clipboard --quit</source>
        <translation>Dieser Desktop hat keinen Platz für das Symbol. Auch ein weiterer Start von Tessel Clipboard öffnet den Verlauf. Zu den Einstellungen und zum Beenden führen der Eintrag unter Ihren Anwendungen und diese Befehle:
tessel-clipboard --settings
tessel-clipboard --quit</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>tessel::UpdateWindow</name>
    <message>
        <source>Software Update</source>
        <translation>Software-Update</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Diese Version überspringen</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Später erinnern</translation>
    </message>
    <message>
        <source>Open Download Page</source>
        <translation>Download-Seite öffnen</translation>
    </message>
</context>
</TS>
