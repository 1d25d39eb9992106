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
        <translation>Nach Aktualisierungen suchen …</translation>
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
</TS>
