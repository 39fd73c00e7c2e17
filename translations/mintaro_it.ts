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
        <translation>Nessun evento in programma</translation>
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
        <translation>da completare</translation>
    </message>
    <message id="Title">
        <source>Title</source>
        <translation>Titolo</translation>
    </message>
    <message id="Event title or natural language...">
        <source>Event title or natural language...</source>
        <translation>Titolo o frase, ad es. pranzo domani…</translation>
    </message>
    <message id="Repeat">
        <source>Repeat</source>
        <translation>Ripeti</translation>
    </message>
    <message id="recurrence.none">
        <source>recurrence.none</source>
        <translation>Mai</translation>
    </message>
    <message id="recurrence.daily">
        <source>recurrence.daily</source>
        <translation>Ogni giorno</translation>
    </message>
    <message id="recurrence.weekly">
        <source>recurrence.weekly</source>
        <translation>Ogni settimana</translation>
    </message>
    <message id="recurrence.monthly">
        <source>recurrence.monthly</source>
        <translation>Ogni mese</translation>
    </message>
    <message id="recurrence.yearly">
        <source>recurrence.yearly</source>
        <translation>Ogni anno</translation>
    </message>
    <message id="Alert">
        <source>Alert</source>
        <translation>Avviso</translation>
    </message>
    <message id="alert.none">
        <source>alert.none</source>
        <translation>Nessuno</translation>
    </message>
    <message id="alert.atTimeOfEvent">
        <source>alert.atTimeOfEvent</source>
        <translation>All’ora dell’evento</translation>
    </message>
    <message id="alert.5min">
        <source>alert.5min</source>
        <translation>5 minuti prima</translation>
    </message>
    <message id="alert.10min">
        <source>alert.10min</source>
        <translation>10 minuti prima</translation>
    </message>
    <message id="alert.15min">
        <source>alert.15min</source>
        <translation>15 minuti prima</translation>
    </message>
    <message id="alert.30min">
        <source>alert.30min</source>
        <translation>30 minuti prima</translation>
    </message>
    <message id="alert.1hour">
        <source>alert.1hour</source>
        <translation>1 ora prima</translation>
    </message>
    <message id="alert.1day">
        <source>alert.1day</source>
        <translation>1 giorno prima</translation>
    </message>
    <message id="Calendar">
        <source>Calendar</source>
        <translation>Calendario</translation>
    </message>
    <message id="This is a repeating event.">
        <source>This is a repeating event.</source>
        <translation>Questo evento si ripete.</translation>
    </message>
    <message id="Do you want to change only this event or all future events?">
        <source>Do you want to change only this event or all future events?</source>
        <translation>Vuoi modificare solo questo evento o anche tutti i successivi?</translation>
    </message>
    <message id="Only This Event">
        <source>Only This Event</source>
        <translation>Solo questo</translation>
    </message>
    <message id="All Future Events">
        <source>All Future Events</source>
        <translation>Tutti i successivi</translation>
    </message>
    <message id="accessibility.time %@">
        <source>accessibility.time %@</source>
        <translation>%1, ora</translation>
    </message>
    <message id="accessibility.chooseDay %@">
        <source>accessibility.chooseDay %@</source>
        <translation>%1, scegli un giorno</translation>
    </message>
    <message id="New Event">
        <source>New Event</source>
        <translation>Nuovo evento</translation>
    </message>
    <message id="New Event (⌘N)">
        <source>New Event (⌘N)</source>
        <translation>Nuovo evento (Ctrl+N)</translation>
    </message>
    <message id="Quit Mintaro (⌘Q)">
        <source>Quit Mintaro (⌘Q)</source>
        <translation>Esci da Mintaro (Ctrl+Q)</translation>
    </message>
    <message id="Edit Event">
        <source>Edit Event</source>
        <translation>Modifica evento</translation>
    </message>
    <message id="Delete Event">
        <source>Delete Event</source>
        <translation>Elimina evento</translation>
    </message>
    <message id="Search (⌘F)">
        <source>Search (⌘F)</source>
        <translation>Cerca (Ctrl+F)</translation>
    </message>
    <message id="Search">
        <source>Search</source>
        <translation>Cerca</translation>
    </message>
    <message id="Search events...">
        <source>Search events...</source>
        <translation>Cerca eventi…</translation>
    </message>
    <message id="Search results">
        <source>Search results</source>
        <translation>Risultati della ricerca</translation>
    </message>
    <message id="No results">
        <source>No results</source>
        <translation>Nessun risultato</translation>
    </message>
    <message id="Done">
        <source>Done</source>
        <translation>Fine</translation>
    </message>
    <message id="Clear">
        <source>Clear</source>
        <translation>Svuota</translation>
    </message>
    <message id="Copy Event Details">
        <source>Copy Event Details</source>
        <translation>Copia dettagli dell’evento</translation>
    </message>
    <message id="Open in Calendar">
        <source>Open in Calendar</source>
        <translation>Apri in Calendario</translation>
    </message>
    <message id="Copy Meeting Link">
        <source>Copy Meeting Link</source>
        <translation>Copia link della riunione</translation>
    </message>
    <message id="Mark as Completed">
        <source>Mark as Completed</source>
        <translation>Segna come completato</translation>
    </message>
    <message id="Mark as Incomplete">
        <source>Mark as Incomplete</source>
        <translation>Segna come da completare</translation>
    </message>
    <message id="Open Link">
        <source>Open Link</source>
        <translation>Apri link</translation>
    </message>
    <message id="Copy Reminder Details">
        <source>Copy Reminder Details</source>
        <translation>Copia dettagli del promemoria</translation>
    </message>
    <message id="Open in Reminders">
        <source>Open in Reminders</source>
        <translation>Apri in Promemoria</translation>
    </message>
    <message id="Delete Reminder">
        <source>Delete Reminder</source>
        <translation>Elimina promemoria</translation>
    </message>
    <message id="Delete Event?">
        <source>Delete Event?</source>
        <translation>Eliminare l’evento?</translation>
    </message>
    <message id="Are you sure you want to delete &quot;%@&quot;?">
        <source>Are you sure you want to delete "%@"?</source>
        <translation>Vuoi davvero eliminare "%1"?</translation>
    </message>
    <message id="Delete">
        <source>Delete</source>
        <translation>Elimina</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message id="Error">
        <source>Error</source>
        <translation>Errore</translation>
    </message>
    <message id="OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="Close">
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message id="Save">
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message id="Start">
        <source>Start</source>
        <translation>Inizio</translation>
    </message>
    <message id="End">
        <source>End</source>
        <translation>Fine</translation>
    </message>
    <message id="Location">
        <source>Location</source>
        <translation>Luogo</translation>
    </message>
    <message id="Notes">
        <source>Notes</source>
        <translation>Note</translation>
    </message>
    <message id="editor.restored">
        <source>editor.restored</source>
        <translation>Queste modifiche non sono state salvate.</translation>
    </message>
    <message id="Discard">
        <source>Discard</source>
        <translation>Scarta</translation>
    </message>
    <message id="Agenda">
        <source>Agenda</source>
        <translation>Agenda</translation>
    </message>
    <message id="calendarApp.missing">
        <source>calendarApp.missing</source>
        <translation>Nessuna app di calendario installata può mostrare questo giorno.</translation>
    </message>
    <message id="calendarApp.failed %@">
        <source>calendarApp.failed %@</source>
        <translation>Impossibile aprire %1.</translation>
    </message>
    <message id="remindersApp.missing">
        <source>remindersApp.missing</source>
        <translation>Non è installata alcuna app per i promemoria.</translation>
    </message>
    <message id="notification.joinMeeting">
        <source>notification.joinMeeting</source>
        <translation>Partecipa</translation>
    </message>
    <message id="notification.open">
        <source>notification.open</source>
        <translation>Apri</translation>
    </message>
    <message id="notification.dismiss">
        <source>notification.dismiss</source>
        <translation>Chiudi</translation>
    </message>
    <message id="notification.meetingSoon %@ %@ %lld" numerus="yes">
        <source>notification.meetingSoon %@ %@ %lld</source>
        <translation>
            <numerusform>%1: %2 tra %n minuto</numerusform>
            <numerusform>%1: %2 tra %n minuti</numerusform>
        </translation>
    </message>
    <message id="notification.eventIn %@ %lld" numerus="yes">
        <source>notification.eventIn %@ %lld</source>
        <translation>
            <numerusform>%1 inizia tra %n minuto</numerusform>
            <numerusform>%1 inizia tra %n minuti</numerusform>
        </translation>
    </message>
    <message id="notification.eventStartingSoon">
        <source>notification.eventStartingSoon</source>
        <translation>L’evento sta per iniziare</translation>
    </message>
    <message id="Settings">
        <source>Settings</source>
        <translation>Impostazioni</translation>
    </message>
    <message id="settings.title">
        <source>settings.title</source>
        <translation>Impostazioni di Mintaro</translation>
    </message>
    <message id="General">
        <source>General</source>
        <translation>Generali</translation>
    </message>
    <message id="Appearance">
        <source>Appearance</source>
        <translation>Aspetto</translation>
    </message>
    <message id="Calendars">
        <source>Calendars</source>
        <translation>Calendari</translation>
    </message>
    <message id="Shortcuts">
        <source>Shortcuts</source>
        <translation>Scorciatoie</translation>
    </message>
    <message id="World Clock">
        <source>World Clock</source>
        <translation>Fusi orari</translation>
    </message>
    <message id="About">
        <source>About</source>
        <translation>Info</translation>
    </message>
    <message id="Menu Bar">
        <source>Menu Bar</source>
        <translation>Pannello</translation>
    </message>
    <message id="Launch at login">
        <source>Launch at login</source>
        <translation>Avvia all’accesso</translation>
    </message>
    <message id="Show date in menu bar">
        <source>Show date in menu bar</source>
        <translation>Mostra la data nel pannello</translation>
    </message>
    <message id="Show next event in menu bar">
        <source>Show next event in menu bar</source>
        <translation>Mostra il prossimo evento nel pannello</translation>
    </message>
    <message id="Show meeting icon">
        <source>Show meeting icon</source>
        <translation>Mostra l’icona della riunione</translation>
    </message>
    <message id="Countdown format">
        <source>Countdown format</source>
        <translation>Formato del conto alla rovescia</translation>
    </message>
    <message id="countdown.format.relative">
        <source>countdown.format.relative</source>
        <translation>Relativo (tra 5 min)</translation>
    </message>
    <message id="countdown.format.compact">
        <source>countdown.format.compact</source>
        <translation>Compatto (5m)</translation>
    </message>
    <message id="countdown.format.absolute">
        <source>countdown.format.absolute</source>
        <translation>Assoluto (14:30)</translation>
    </message>
    <message id="Max title length: %lld">
        <source>Max title length: %lld</source>
        <translation>Lunghezza massima del titolo: %1</translation>
    </message>
    <message id="Date format">
        <source>Date format</source>
        <translation>Formato della data</translation>
    </message>
    <message id="Uses DateFormatter patterns: d MMM, EEE d, etc.">
        <source>Uses DateFormatter patterns: d MMM, EEE d, etc.</source>
        <translation>Usa i modelli Unicode per le date: d MMM, EEE d ecc.</translation>
    </message>
    <message id="Notifications">
        <source>Notifications</source>
        <translation>Notifiche</translation>
    </message>
    <message id="Meeting reminders">
        <source>Meeting reminders</source>
        <translation>Notifiche delle riunioni</translation>
    </message>
    <message id="Show a notification before meetings with video links">
        <source>Show a notification before meetings with video links</source>
        <translation>Mostra una notifica prima delle riunioni con un link video</translation>
    </message>
    <message id="%lld min before">
        <source>%lld min before</source>
        <translation>%1 min prima</translation>
    </message>
    <message id="Hourly chime">
        <source>Hourly chime</source>
        <translation>Segnale orario</translation>
    </message>
    <message id="Language">
        <source>Language</source>
        <translation>Lingua</translation>
    </message>
    <message id="language.system">
        <source>language.system</source>
        <translation>Come il sistema</translation>
    </message>
    <message id="English">
        <source>English</source>
        <translation>English</translation>
    </message>
    <message id="Italiano">
        <source>Italiano</source>
        <translation>Italiano</translation>
    </message>
    <message id="Restart required to change language">
        <source>Restart required to change language</source>
        <translation>Per cambiare lingua occorre riavviare Mintaro</translation>
    </message>
    <message id="Updates">
        <source>Updates</source>
        <translation>Aggiornamenti</translation>
    </message>
    <message id="Check for Updates...">
        <source>Check for Updates...</source>
        <translation>Cerca aggiornamenti…</translation>
    </message>
    <message id="updates.checking">
        <source>updates.checking</source>
        <translation>Ricerca in corso…</translation>
    </message>
    <message id="updates.none">
        <source>updates.none</source>
        <translation>Aggiorna Mintaro nel modo in cui l’hai installato.</translation>
    </message>
    <message id="updates.upToDate">
        <source>updates.upToDate</source>
        <translation>Mintaro è aggiornato.</translation>
    </message>
    <message id="updates.available %@">
        <source>updates.available %@</source>
        <translation>Nuova versione: %1</translation>
    </message>
    <message id="updates.unreachable">
        <source>updates.unreachable</source>
        <translation>Il server non è raggiungibile.</translation>
    </message>
    <message id="updates.malformed">
        <source>updates.malformed</source>
        <translation>Risposta del server non valida.</translation>
    </message>
    <message id="updates.open">
        <source>updates.open</source>
        <translation>Mostra</translation>
    </message>
    <message id="Colors">
        <source>Colors</source>
        <translation>Colori</translation>
    </message>
    <message id="Use system accent color">
        <source>Use system accent color</source>
        <translation>Usa il colore d’accento del sistema</translation>
    </message>
    <message id="Accent color (hex)">
        <source>Accent color (hex)</source>
        <translation>Colore d’accento (esadecimale)</translation>
    </message>
    <message id="Font">
        <source>Font</source>
        <translation>Carattere</translation>
    </message>
    <message id="Event font size: %lldpt">
        <source>Event font size: %lldpt</source>
        <translation>Carattere degli eventi: %1&#xa0;pt</translation>
    </message>
    <message id="Calendar Access Required">
        <source>Calendar Access Required</source>
        <translation>Accesso ai calendari necessario</translation>
    </message>
    <message id="Mintaro needs permission to read your calendars. Grant access in System Settings.">
        <source>Mintaro needs permission to read your calendars. Grant access in System Settings.</source>
        <translation>Mintaro non può leggere i tuoi calendari. Controlla che le cartelle indicate nella sua configurazione siano leggibili.</translation>
    </message>
    <message id="Reminders">
        <source>Reminders</source>
        <translation>Promemoria</translation>
    </message>
    <message id="Reminder Lists">
        <source>Reminder Lists</source>
        <translation>Elenchi di promemoria</translation>
    </message>
    <message id="No calendars available">
        <source>No calendars available</source>
        <translation>Nessun calendario disponibile</translation>
    </message>
    <message id="No reminder lists available">
        <source>No reminder lists available</source>
        <translation>Nessun elenco di promemoria disponibile</translation>
    </message>
    <message id="Global Shortcuts">
        <source>Global Shortcuts</source>
        <translation>Scorciatoie globali</translation>
    </message>
    <message id="Toggle popover">
        <source>Toggle popover</source>
        <translation>Apri o chiudi il calendario</translation>
    </message>
    <message id="⌥ Space">
        <source>⌥ Space</source>
        <translation>Alt+Spazio</translation>
    </message>
    <message id="In-App Shortcuts">
        <source>In-App Shortcuts</source>
        <translation>Scorciatoie nell’app</translation>
    </message>
    <message id="Previous month">
        <source>Previous month</source>
        <translation>Mese precedente</translation>
    </message>
    <message id="Next month">
        <source>Next month</source>
        <translation>Mese successivo</translation>
    </message>
    <message id="Go to today">
        <source>Go to today</source>
        <translation>Vai a oggi</translation>
    </message>
    <message id="New event">
        <source>New event</source>
        <translation>Nuovo evento</translation>
    </message>
    <message id="⌘ ←">
        <source>⌘ ←</source>
        <translation>Ctrl+←</translation>
    </message>
    <message id="⌘ →">
        <source>⌘ →</source>
        <translation>Ctrl+→</translation>
    </message>
    <message id="T">
        <source>T</source>
        <translation>T</translation>
    </message>
    <message id="⌘ N">
        <source>⌘ N</source>
        <translation>Ctrl+N</translation>
    </message>
    <message id="⌘ F">
        <source>⌘ F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message id="Version %@ (%@)">
        <source>Version %@ (%@)</source>
        <translation>Versione %1 (%2)</translation>
    </message>
    <message id="A lightweight macOS menu bar calendar">
        <source>A lightweight macOS menu bar calendar</source>
        <translation>Un calendario leggero per il pannello del desktop</translation>
    </message>
    <message id="Timezones">
        <source>Timezones</source>
        <translation>Fusi orari</translation>
    </message>
    <message id="No timezones added">
        <source>No timezones added</source>
        <translation>Nessun fuso orario aggiunto</translation>
    </message>
    <message id="Add Timezone...">
        <source>Add Timezone...</source>
        <translation>Aggiungi fuso orario…</translation>
    </message>
    <message id="Add Timezone">
        <source>Add Timezone</source>
        <translation>Aggiungi fuso orario</translation>
    </message>
    <message id="Search timezones...">
        <source>Search timezones...</source>
        <translation>Cerca fusi orari…</translation>
    </message>
    <message id="accessibility.remove %@">
        <source>accessibility.remove %@</source>
        <translation>Rimuovi %1</translation>
    </message>
    <message id="updates.available.title %@">
        <source>updates.available.title %@</source>
        <translation>È disponibile Mintaro %1</translation>
    </message>
    <message id="updates.available.body %@">
        <source>updates.available.body %@</source>
        <translation>La versione installata è la %1.</translation>
    </message>
    <message id="settings.unsaved">
        <source>settings.unsaved</source>
        <translation>Queste modifiche non possono essere salvate e valgono finché Mintaro resta aperto.</translation>
    </message>
</context>
</TS>
