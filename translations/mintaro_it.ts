<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name></name>
    <message id="countdown.now">
        <source>countdown.now</source>
        <translation>adesso</translation>
    </message>
    <message id="countdown.relative.minutes %lld">
        <source>countdown.relative.minutes %lld</source>
        <translation>tra %1 min</translation>
    </message>
    <message id="countdown.relative.hours %lld">
        <source>countdown.relative.hours %lld</source>
        <translation>tra %1 h</translation>
    </message>
    <message id="countdown.relative.hoursMinutes %lld %lld">
        <source>countdown.relative.hoursMinutes %lld %lld</source>
        <translation>tra %1 h %2 min</translation>
    </message>
    <message id="All Day">
        <source>All Day</source>
        <translation>Tutto il giorno</translation>
    </message>
    <message id="Untitled">
        <source>Untitled</source>
        <translation>Senza titolo</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <translation>Oggi</translation>
    </message>
    <message id="Tomorrow">
        <source>Tomorrow</source>
        <translation>Domani</translation>
    </message>
    <message id="W">
        <source>W</source>
        <translation>S</translation>
    </message>
    <message id="No upcoming events">
        <source>No upcoming events</source>
        <translation>Nessun evento in arrivo</translation>
    </message>
    <message id="Calendar access not granted">
        <source>Calendar access not granted</source>
        <translation>Accesso ai calendari non consentito</translation>
    </message>
    <message id="Open Privacy Settings">
        <source>Open Privacy Settings</source>
        <translation>Apri la configurazione dei calendari</translation>
    </message>
    <message id="Join %@">
        <source>Join %@</source>
        <translation>Partecipa con %1</translation>
    </message>
    <message id="Previous Month">
        <source>Previous Month</source>
        <translation>Mese precedente</translation>
    </message>
    <message id="Next Month">
        <source>Next Month</source>
        <translation>Mese successivo</translation>
    </message>
    <message id="Loading">
        <source>Loading</source>
        <translation>Caricamento</translation>
    </message>
    <message id="Show Calendar">
        <source>Show Calendar</source>
        <translation>Mostra calendario</translation>
    </message>
    <message id="menu.join %@ %@ %@">
        <source>menu.join %@ %@ %@</source>
        <translation>%1 %2 – Partecipa con %3</translation>
    </message>
    <message id="Quit">
        <source>Quit</source>
        <translation>Esci</translation>
    </message>
    <message id="accessibility.hasEvents">
        <source>accessibility.hasEvents</source>
        <translation>con eventi</translation>
    </message>
    <message id="accessibility.completed">
        <source>accessibility.completed</source>
        <translation>completato</translation>
    </message>
    <message id="accessibility.notCompleted">
        <source>accessibility.notCompleted</source>
        <translation>da fare</translation>
    </message>
</context>
</TS>
