#include "Platform/Foundation/Dates/DateLexicon.h"

namespace mintaro {

namespace {

using enum WordKind;

constexpr WordRow kRows[] = {
    { RelativeDay, 0, u"oggi" },
    { RelativeDay, 1, u"domani|doman" },
    { RelativeDay, 2, u"dopodomani|dopo domani|domani l'altro|posdomani|doman l'altro" },
    { RelativeDay, -1, u"ieri" },
    { RelativeDay, -2, u"l'altro ieri|altro ieri|ieri l'altro|avantieri|altroieri|l'altroieri" },
    { TonightWord, of(DayPart::Morning), u"stamattina|stamani|stamane|sta mattina" },
    { TonightWord, of(DayPart::Evening), u"stasera|sta sera" },
    { TonightWord, of(DayPart::Night), u"stanotte|sta notte" },
    { TonightWord, 10 + of(DayPart::Morning), u"domattina" },
    { TonightWord, 10 + of(DayPart::Evening), u"domansera" },
    { DayPartWord, of(DayPart::Morning), u"mattina|mattino|in mattinata|di mattina|nella mattinata|mattinata" },
    { DayPartWord, of(DayPart::Afternoon), u"pomeriggio|nel pomeriggio|di pomeriggio|pome|pom" },
    { DayPartWord, of(DayPart::Evening), u"sera|in serata|di sera|serata|nella serata" },
    { DayPartWord, of(DayPart::Night), u"notte|nella notte|di notte" },
    { Weekday, 1, u"lunedi" },
    { Weekday, 2, u"martedi" },
    { Weekday, 3, u"mercoledi|mercoldi" },
    { Weekday, 4, u"giovedi" },
    { Weekday, 5, u"venerdi" },
    { Weekday, 6, u"sabato" },
    { Weekday, 7, u"domenica" },
    { Weekday, 1, u"lun", Abbreviated },
    { Weekday, 2, u"mart", Abbreviated },
    { Weekday, 2, u"mar", Abbreviated | Ambiguous },
    { Weekday, 3, u"merc", Abbreviated },
    { Weekday, 3, u"mer", Abbreviated },
    { Weekday, 4, u"giov", Abbreviated },
    { Weekday, 4, u"gio", Abbreviated | Ambiguous },
    { Weekday, 5, u"ven", Abbreviated },
    { Weekday, 6, u"sab", Abbreviated },
    { Weekday, 7, u"dom", Abbreviated | Ambiguous },
    { Month, 1, u"gennaio" },
    { Month, 2, u"febbraio" },
    { Month, 3, u"marzo" },
    { Month, 4, u"aprile" },
    { Month, 5, u"maggio" },
    { Month, 6, u"giugno" },
    { Month, 7, u"luglio" },
    { Month, 8, u"agosto" },
    { Month, 9, u"settembre" },
    { Month, 10, u"ottobre" },
    { Month, 11, u"novembre" },
    { Month, 12, u"dicembre" },
    { Month, 1, u"gen|genn", Abbreviated },
    { Month, 2, u"feb|febb", Abbreviated },
    { Month, 3, u"mar|marz", Abbreviated },
    { Month, 4, u"apr", Abbreviated },
    { Month, 5, u"mag|magg", Abbreviated },
    { Month, 6, u"giu", Abbreviated },
    { Month, 7, u"lug", Abbreviated },
    { Month, 8, u"ago", Abbreviated },
    { Month, 9, u"set|sett", Abbreviated },
    { Month, 10, u"ott", Abbreviated },
    { Month, 11, u"nov", Abbreviated },
    { Month, 12, u"dic", Abbreviated },
    { Weekend, 0, u"weekend|week end|week-end|fine settimana|finesettimana" },
    { EndOf, 1,
        u"fine|a fine|ultimo giorno di|ultimo giorno del|l'ultimo giorno di|l'ultimo giorno del|alla fine del|alla "
        u"fine di|fine del|fine di|fine dell'|alla fine dell'" },
    { EndOf, 0, u"inizio|a inizio|all'inizio del|all'inizio di|inizio del|inizio di" },
    { This, 0, u"questo|questa|quest'|sto|sta" },
    { Next, 0, u"prossimo|prossima|il prossimo|la prossima", Behind },
    { Last, 0, u"scorso|scorsa|passato|passata|lo scorso|la scorsa", Behind },
    { Number, 1, u"un'|un|uno", Ambiguous },
    { Number, 3, u"qualche|alcuni|alcune", Ambiguous },
    { Number, 2, u"un paio di|un paio d'|paio di|un paio", Ambiguous },
    { Ordinal, -1, u"ultimo|ultima" },
    { Ordinal, 1, u"prima", Ambiguous },
    { Ordinal, 2, u"seconda", Ambiguous },
    { Ordinal, 3, u"terza", Ambiguous },
    { Ordinal, 4, u"quarta", Ambiguous },
    { OrdinalMark, 0, u"\u00b0|\u00ba|o" },
    { Unit, of(DateUnit::Second), u"secondi" },
    { Unit, of(DateUnit::Minute), u"minuto|minuti|min|minutini" },
    { Unit, of(DateUnit::Hour), u"ora|ore|oretta|orette" },
    { Unit, of(DateUnit::Hour), u"h", Ambiguous },
    { Unit, of(DateUnit::Day), u"giorno|giorni|gg" },
    { Unit, of(DateUnit::Week), u"settimana|settimane|sett" },
    { Unit, of(DateUnit::Month), u"mese|mesi" },
    { Unit, of(DateUnit::Year), u"anno|anni" },
    { Minutes, 15, u"un quarto d'ora|quarto d'ora|un quarto d ora" },
    { Minutes, 30,
        u"mezz'ora|mezzora|mezza ora|mezz ora|mezz'oretta|mezzoretta|una mezz'ora|una mezzora|una mezz'oretta" },
    { Minutes, 45, u"tre quarti d'ora" },
    { AndHalf, 0, u"e mezza|e mezzo" },
    { Ago, 0, u"fa|or sono" },
    { FromNow, 0, u"da oggi|da ora|da adesso" },
    { WeekLater, 1, u"a otto|ad otto|a 8" },
    { WeekLater, 2, u"a quindici|a 15", Ambiguous },
    { Noon, 0, u"mezzogiorno|mezzodi|mezzo giorno" },
    { Midnight, 0, u"mezzanotte|mezza notte" },
    { Meridiem, of(DayPart::Morning), u"am|a.m.|a.m" },
    { Meridiem, of(DayPart::Afternoon), u"pm|p.m.|p.m" },
    { PartPhrase, of(DayPart::Morning), u"di mattina|del mattino|della mattina|la mattina|mattina|di mattino" },
    { PartPhrase, of(DayPart::Afternoon), u"di pomeriggio|del pomeriggio|nel pomeriggio|pomeriggio" },
    { PartPhrase, of(DayPart::Evening), u"di sera|della sera|la sera|sera" },
    { PartPhrase, of(DayPart::Night), u"di notte|della notte" },
    { FractionAfter, 30, u"e mezza|e mezzo|e mezz" },
    { FractionAfter, 15, u"e un quarto|e quarto" },
    { FractionAfter, 45, u"e tre quarti|e trequarti" },
    { FractionAfter, -15, u"meno un quarto|meno quarto" },
    { Minus, 0, u"meno" },
    { HourMark, 0, u"ore|le ore|h|h.|orario|ora" },
    { HourName, 0, u"h|ore" },
    { At, 0,
        u"alle|all'|alla|@|per le|per l'|verso le|verso l'|dopo le|dopo l'|prima delle|entro le|intorno "
        u"alle|delle|circa alle|"
        u"alle circa|fino alle|dell'|verso la" },
    { At, 1, u"a|per" },
    { On, 0,
        u"@|di|del|dello|della|dell'|per|entro|da|nel|nella|in data|il giorno|giorno|la|lo|l'|il|a partire da|a "
        u"partire|con inizio|prima di|dopo|data|per il giorno|i|a" },
    { DayOf, 0,
        u"il|l'|del|dell'|il giorno|giorno|per il|per l'|entro il|entro l'|nel giorno|in data|lo|dal|dall'|per il "
        u"giorno|"
        u"il di|gg|del giorno|dal giorno" },
    { Article, 0, u"il|lo|la|le|l'" },
    { From, 1, u"dalle|dall'|dalle ore" },
    { From, 0, u"dal|da|dalla" },
    { Between, 0, u"tra|fra|tra il|fra il|tra le|fra le|tra l'|fra l'" },
    { And, 0, u"e|ed|e le|e l'|e il" },
    { To, 0, u"a|ad|fino a|sino a" },
    { To, 1, u"al|fino al|sino al|fino al giorno" },
    { To, 2, u"alle|all'|alla|fino alle|fino all'|fino alla|sino alle|e fino alle|fin alle" },
    { In, 0, u"fra|tra|in|entro|fra circa|tra circa" },
    { InMonth, 0, u"in|a|ad|nel mese di|entro" },
    { Before, -1, u"prima di|prima delle|prima del|prima della" },
    { Before, 1, u"dopo|dopo le" },
    { Now, 0, u"adesso" },
    { For, 0, u"per|della durata di|durata|x|per circa" },
    { About, 0, u"circa|verso|le|l'|ore circa" },
    { Of, 0, u"di|del|della|dell'|dello|nel|nella|il|la|in|d'|de" },
    { NotBefore, 0,
        u"cod|matricola|isbn|pressione|npm|preso|punta|esercizi|stanza|stanze|camera|camere|aula|sala|pagina|pagine|"
        u"pag|pagg|pp|capitoli|"
        u"paragrafo|paragrafi|sezioni|versetti|lezioni|capitolo|cap|sezione|parte|versione|vers|v|volume|vol|"
        u"n|nr|no|num|numero|numeri|binario|linea|autobus|bus|tram|metro|treno|volo|uscita|gate|piano|livello|interno|"
        u"int|scala|"
        u"figura|fig|tavolo|tavola|posto|posti|fila|ss|sp|statale|autostrada|casello|km|tel|telefono|cell|cellulare|"
        u"fax|chiama|"
        u"chiamare|punteggio|voto|voti|rapporto|classe|classi|taglia|taglie|misura|modello|tipo|edificio|palazzina|box|"
        u"canale|"
        u"biglietto|fattura|ordine|rif|codice|gruppo|squadra|episodio|ep|puntata|stagione|lezione|articolo|art|comma|"
        u"legge|"
        u"decreto|dpr|pratica|protocollo|prot|pin|eta|ios|android|ubuntu|windows|python|macos|vinto|perso|risultato|"
        u"terminal|"
        u"porta|sportello|salmo|salmi|versetto|compito|esercizio|es|euro|formula|file|matematica|vitamina|serie|civico|"
        u"lotto|scheda" },
    { NotAfter, 0,
        u"k|diversi|diverse|persone|invitati|ospiti|adulti|euro|eur|euri|dollari|sterline|cent|centesimi|percento|per "
        u"cento|per "
        u"mille|kg|g|gr|grammi|"
        u"km|m|cm|mm|ml|l|litri|litro|metri|metro|mq|etti|etto|chili|chilo|gb|mb|tb|kb|kw|kwh|kmh|cal|kcal|stelle|"
        u"stella|punti|gol|"
        u"reti|pagine|pezzi|pz|biglietti|volte|x|gradi|tazze|bottiglie|scatole|copie|camere|stanze|domande|voti|"
        u"dipendenti|membri|"
        u"utenti|miliardi|miliardo|milioni|milione|mila|mille|piani|posti|di noi|di loro|o "
        u"piu|coperti|giocatori|squadre|giri|righe|"
        u"figli|fratelli|sorelle|amici|colleghi|candidati|bambini|alunni|studenti|partite|uova|fette|porzioni|parti|"
        u"sacchi|paia|"
        u"paio|fermate|isolati|di picche|di cuori|di quadri|di fiori|di coppe|di bastoni|di denari|di "
        u"spade|stagioni|carte|sapori|"
        u"moschettieri|grazie|titoli|mori|capitoli|tonnellate|quintali|esercizi|mg|di lunghezza|al kg|al km|al chilo|e "
        u"all'altra|ragazze|piante|ditte|aziende|cugine|sedie|donne|bambine|signore|mamme|zie|nonne|maestre|colleghe|"
        u"figlie|gatte|terre|fontane|torri|al litro|l'una|in scala|a testa|"
        u"volt|watt|puntate|vani|locali|bagni" },
    { NotAfter, 2,
        u"persona|pagina|volta|piano|posto|grado|secolo|compleanno|anniversario|edizione|tentativo|stagione|episodio|"
        u"capitolo|"
        u"versione|punto|classificato|premio|turno|set|tempo|atto|livello|giorno|settimana|mese|anno|maggiore|romano|"
        u"figlio|classe|"
        u"giornata|trimestre|semestre|quadrimestre|dose|round|marcia|elementare|media|superiore|liceo|fila|puntata|"
        u"parte" },
    { NameBefore, 0,
        u"fiume|black|santo|santa|san|suor|don|zia|zio|nonna|nonno|sig|signor|signora|dott|prof|il "
        u"sig|rivista|film|robinson e|locale|bar|avv|ing|geom" },
    { NameAfter, 0,
        u"addams|del villaggio|ponti|santo|santa|grasso|sport|nero|in albis|delle palme|pomeriggio "
        u"tv|rosso|mediterraneo|adriatico|tirreno|"
        u"ionio|baltico|caspio|morto|ligure|egeo|nostrum|piccolo|grande|perignon|verde" },
    { Scripture, 0,
        u"versetto|versetti|giovanni|luca|marco|matteo|genesi|esodo|salmo|romani|corinzi|isaia|atti|giacomo|pietro|"
        u"timoteo" },
    { Media, 0,
        u"dvd|vhs|vinile|poster|spartito|accordi|testo|testo di|karaoke|colonna sonora|arretrati|abbonamento|giro di "
        u"chitarra|"
        u"blu-ray|romanzo|canzone|brano|figurina|figurine|audiolibro" },
    { Measure, 0,
        u"solfeggio|valzer|mescolare|diluire|diluito|miscelare|rapporto|scala|quota|quote|passo|passo "
        u"medio|minuto|prezzo|prezzi|costo|totale|pagato" },
    { RomanNumeral, 0, u"i|ii|iii|iv|v|vi|vii|viii|ix|x|xi|xii|xx|xxii|xxiv|xxv" },
    { Street, 0,
        u"via|viale|v.le|piazza|p.za|p.zza|piazzale|p.le|corso|c.so|largo|strada|vicolo|contrada|borgo|galleria|ponte|"
        u"lungotevere|"
        u"scuola|metro|fermata|stazione" },
    { Subject, 0, u"con|da|di|a|per|e|il|la|al|del|chiamare|sentire|san|santa" },
};

constexpr DateLanguage kItalian {
    .rows = kRows,
    .numbers
    = u"zero|una|due|tre|quattro|cinque|sei|sette|otto|nove|dieci|undici|dodici|tredici|quattordici|quindici|sedici|"
      u"diciassette|diciotto|diciannove|venti|ventuno|ventidue|ventitre|ventiquattro|venticinque|ventisei|ventisette|"
      u"ventotto|ventinove|trenta|trentuno|trentadue|trentatre|trentaquattro|trentacinque|trentasei|trentasette|"
      u"trentotto|trentanove|quaranta|quarantuno|quarantadue|quarantatre|quarantaquattro|quarantacinque|quarantasei|"
      u"quarantasette|quarantotto|quarantanove|cinquanta|cinquantuno|cinquantadue|cinquantatre|cinquantaquattro|"
      u"cinquantacinque|cinquantasei|cinquantasette|cinquantotto|cinquantanove|sessanta",
    .ordinals = u"primo|secondo|terzo|quarto|quinto|sesto|settimo|ottavo|nono|decimo",
    .plainDayOfMonth = true,
    .decimalComma = true,
};

} // namespace

const DateLanguage &italianDateLanguage()
{
    return kItalian;
}

} // namespace mintaro
