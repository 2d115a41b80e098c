<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AboutTab</name>
    <message>
        <source>Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, work hours, theme. Login Items state stays the way you set it in System Settings.</source>
        <translation>Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, work hours, theme. Whether Vantrel starts at login stays the way you set it.</translation>
    </message>
</context>
<context>
    <name>CalendarPage</name>
    <message>
        <source>macOS will ask once for permission to read your calendar. Tobble needs this to know when your meetings start. Your calendar never leaves this Mac — there's no backend.</source>
        <translation>Vantrel will ask once for permission to read your calendar. Tobble needs this to know when your meetings start. Your calendar never leaves this computer — there's no backend.</translation>
    </message>
    <message>
        <source>If macOS doesn't prompt (e.g. you previously declined), open System Settings → Privacy &amp; Security → Calendars and enable Vantrel.</source>
        <translation>If Vantrel doesn't ask (e.g. a policy of this computer bars access), whoever looks after it can lift that; Preferences → Calendars tells where calendars come from.</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Adds Vantrel to your macOS Login Items so it's ready before your first meeting.</source>
        <translation>Adds Vantrel to the programs your desktop starts at login so it's ready before your first meeting.</translation>
    </message>
</context>
<context>
    <name>ShortcutCard</name>
    <message>
        <source>Fires a macOS Shortcut alongside opening the link. Leave blank to disable.</source>
        <translation>Fires a shortcut of yours alongside opening the link. Leave blank to disable.</translation>
    </message>
</context>
<context>
    <name>ShortcutDetails</name>
    <message>
        <source>The Shortcuts app on your Mac lets you chain actions together — mute Slack, set a Focus mode, hide your desktop icons, open a notes template. Tobble can fire one of those for you the moment you join a meeting.</source>
        <translation>A program that you register for shortcuts: links lets you chain actions together — mute Slack, set a Focus mode, hide your desktop icons, open a notes template. Tobble can fire one of those for you the moment you join a meeting.</translation>
    </message>
    <message>
        <source>Open the Shortcuts app and build (or pick) the shortcut you want.</source>
        <translation>Have a program of yours open shortcuts: links and run the shortcut that the link names.</translation>
    </message>
    <message>
        <source>Shortcuts run on your Mac. Nothing about your meeting or the shortcut leaves the device.</source>
        <translation>Shortcuts run on your computer. Nothing about your meeting or the shortcut leaves the device.</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>A minute before each meeting, Tobble takes over your screen and brings you to it — unmissable, but warm. Calendar data stays on your Mac.</source>
        <translation>A minute before each meeting, Tobble takes over your screen and brings you to it — unmissable, but warm. Calendar data stays on your computer.</translation>
    </message>
    <message>
        <source>No backend, no cloud, no telemetry. Your calendar never leaves this Mac.</source>
        <translation>No backend, no cloud, no telemetry. Your calendar never leaves this computer.</translation>
    </message>
</context>
<context>
    <name>vantrel::GeneralTabModel</name>
    <message>
        <source>Couldn't update Login Items: </source>
        <translation>Couldn't change what starts at login: </translation>
    </message>
</context>
</TS>
