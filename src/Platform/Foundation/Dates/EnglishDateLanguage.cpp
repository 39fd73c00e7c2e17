#include "Platform/Foundation/Dates/DateLexicon.h"

namespace mintaro {

namespace {

using enum WordKind;

constexpr WordRow kRows[] = {
    { RelativeDay, 0, u"today|tdy" },
    { RelativeDay, 1, u"tomorrow|tomorow|tommorow|tommorrow|tmrw|tmw|tmr|tomoz" },
    { RelativeDay, 2, u"day after tomorrow|overmorrow" },
    { RelativeDay, -1, u"yesterday" },
    { RelativeDay, -2, u"day before yesterday" },
    { TonightWord, of(DayPart::Evening), u"tonight|tonite|2nite" },
    { TonightWord, -10 + of(DayPart::Night), u"last night" },
    { DayPartWord, of(DayPart::Morning), u"morning|early morning|morn" },
    { DayPartWord, of(DayPart::Afternoon), u"afternoon|arvo" },
    { DayPartWord, of(DayPart::Evening), u"evening" },
    { DayPartWord, of(DayPart::Night), u"night|nite" },
    { Weekday, 1, u"monday|mondays" },
    { Weekday, 2, u"tuesday|tuesdays" },
    { Weekday, 3, u"wednesday|wednesdays|wensday|wednsday" },
    { Weekday, 4, u"thursday|thursdays" },
    { Weekday, 5, u"friday|fridays" },
    { Weekday, 6, u"saturday|saturdays" },
    { Weekday, 7, u"sunday|sundays" },
    { Weekday, 1, u"mon", Abbreviated },
    { Weekday, 2, u"tue|tues", Abbreviated },
    { Weekday, 3, u"weds", Abbreviated },
    { Weekday, 4, u"thu|thur|thurs", Abbreviated },
    { Weekday, 5, u"fri", Abbreviated },
    { Weekday, 3, u"wed", Abbreviated | Ambiguous },
    { Weekday, 6, u"sat", Abbreviated | Ambiguous },
    { Weekday, 7, u"sun", Abbreviated | Ambiguous },
    { Month, 1, u"january" },
    { Month, 2, u"february" },
    { Month, 3, u"march", Ambiguous },
    { Month, 4, u"april" },
    { Month, 5, u"may", Ambiguous },
    { Month, 6, u"june" },
    { Month, 7, u"july" },
    { Month, 8, u"august" },
    { Month, 9, u"september" },
    { Month, 10, u"october" },
    { Month, 11, u"november" },
    { Month, 12, u"december" },
    { Month, 1, u"jan", Abbreviated },
    { Month, 2, u"feb", Abbreviated },
    { Month, 3, u"mar", Abbreviated },
    { Month, 4, u"apr", Abbreviated },
    { Month, 6, u"jun", Abbreviated },
    { Month, 7, u"jul", Abbreviated },
    { Month, 8, u"aug", Abbreviated },
    { Month, 9, u"sep|sept", Abbreviated },
    { Month, 10, u"oct", Abbreviated },
    { Month, 11, u"nov", Abbreviated },
    { Month, 12, u"dec", Abbreviated },
    { Weekend, 0, u"weekend|week end|week-end" },
    { EndOf, 1,
        u"end of|end of the|the end of|the end of the|last day of|last day in|last day of the|the last day of|the last "
        u"day of the|the last day in" },
    { EndOf, 0,
        u"first day of|first day of the|the first day of|the first day of the|start of|start of the|beginning "
        u"of|beginning of the" },
    { EndOfUnit, of(DateUnit::Month), u"month end|eom", Abbreviated },
    { EndOfUnit, of(DateUnit::Year), u"year end|eoy", Abbreviated },
    { This, 0, u"this|this coming|coming|the coming|upcoming" },
    { Next, 0, u"next|the next" },
    { Last, 0, u"last|past|the last" },
    { Number, 1, u"a|an", Ambiguous },
    { Number, 3, u"a few|few", Ambiguous },
    { Number, 2, u"a couple of|couple of|a couple|couple", Ambiguous },
    { Ordinal, -1, u"last|final" },
    { OrdinalMark, 0, u"st|nd|rd|th" },
    { Unit, of(DateUnit::Second), u"seconds|secs|sec" },
    { Unit, of(DateUnit::Minute), u"minute|minutes|min|mins" },
    { Unit, of(DateUnit::Minute), u"m", Abbreviated | Ambiguous },
    { Unit, of(DateUnit::Hour), u"hour|hours|hr|hrs" },
    { Unit, of(DateUnit::Hour), u"h", Ambiguous },
    { Unit, of(DateUnit::Day), u"day|days" },
    { Unit, of(DateUnit::Day), u"d", Abbreviated | Ambiguous },
    { Unit, of(DateUnit::Week), u"week|weeks|wk|wks" },
    { Unit, of(DateUnit::Week), u"w", Abbreviated | Ambiguous },
    { Unit, of(DateUnit::Fortnight), u"fortnight|fortnights" },
    { Unit, of(DateUnit::Month), u"month|months|mth|mths" },
    { Unit, of(DateUnit::Month), u"mo", Abbreviated | Ambiguous },
    { Unit, of(DateUnit::Year), u"y", Abbreviated | Ambiguous },
    { Unit, of(DateUnit::Year), u"year|years|yr|yrs" },
    { Minutes, 15, u"a quarter of an hour|quarter of an hour|quarter hour" },
    { Minutes, 30, u"half an hour|half hour|a half hour|half-hour" },
    { Minutes, 45, u"three quarters of an hour" },
    { Minutes, 90, u"an hour and a half|one and a half hours|hour and a half" },
    { AndHalf, 0, u"and a half|and half" },
    { Ago, 0, u"ago" },
    { FromNow, 0, u"from now|from today|later|hence" },
    { WeekLater, 1, u"week" },
    { WeekLater, 2, u"fortnight" },
    { Noon, 0, u"noon|midday" },
    { Midnight, 0, u"midnight" },
    { Meridiem, of(DayPart::Morning), u"am|a.m.|a.m" },
    { Meridiem, of(DayPart::Afternoon), u"pm|p.m.|p.m" },
    { MeridiemLetter, of(DayPart::Morning), u"a" },
    { MeridiemLetter, of(DayPart::Afternoon), u"p" },
    { PartPhrase, of(DayPart::Morning), u"in the morning|in the early morning" },
    { PartPhrase, of(DayPart::Afternoon), u"in the afternoon" },
    { PartPhrase, of(DayPart::Evening), u"in the evening" },
    { PartPhrase, of(DayPart::Night), u"at night" },
    { OClock, 0, u"o'clock|oclock|o clock" },
    { FractionBefore, 30, u"half past|half-past|half" },
    { FractionBefore, 15, u"quarter past|a quarter past|quarter after" },
    { FractionBefore, -15, u"quarter to|a quarter to|quarter till|quarter of|quarter before" },
    { Past, 0, u"past|after|minutes past|mins past" },
    { ToHour, 0, u"to|till|before|minutes to|mins to" },
    { HourName, 0, u"hours|hrs|hour|h" },
    { At, 0, u"at|@|at about|at around|at approx|at approximately" },
    { On, 0, u"on|@|by|before|until|till|starting|starting on|beginning|after|since|as of" },
    { DayOf, 0, u"on the|the|on|by the" },
    { Article, 0, u"the" },
    { From, 0, u"from|starting at|starting from" },
    { Between, 0, u"between|btw|b/w" },
    { And, 0, u"and|&" },
    { To, 0, u"to|until|till|til|through|thru|up to|'til" },
    { In, 0, u"in|within|after|in about" },
    { InMonth, 0, u"in|in early|by|during" },
    { Before, -1, u"before" },
    { Before, 1, u"after" },
    { Now, 0, u"now|right now|just now" },
    { For, 0, u"for|lasting" },
    { About, 0, u"about|around|approx|approximately|roughly|circa|by|before|after|until|till" },
    { Of, 0, u"of|in|of the|in the|on|on the" },
    { NotBefore, 0,
        u"blood "
        u"pressure|bp|npm|flat|lab|clause|exercise|got|room|rooms|rm|gate|page|pages|pg|chapter|chapters|ch|section|"
        u"part|parts|version|ver|v|vol|volume|no|nr|number|num|#|"
        u"platform|line|bus|train|tram|flight|route|apt|apartment|suite|ste|floor|level|unit|lot|figure|fig|table|seat|"
        u"row|"
        u"highway|hwy|interstate|exit|tel|phone|fax|ext|extension|call "
        u"us|step|steps|score|scored|rated|rating|ratio|grade|"
        u"grades|ages|aged|age|size|sizes|model|type|building|bldg|studio|hall|box|channel|ticket|invoice|order|ref|id|"
        u"pin|"
        u"code|group|team|track|episode|ep|season|week|lesson|unit|ios|macos|android|ubuntu|debian|windows|python|php|"
        u"java|"
        u"node|kernel|release|build|rev|won|lost|beat|lead|psalm|verse|article|item|task|issue|bug|pr|terminal|door|"
        u"court|"
        u"lane|bay|stand|dial|port|battery|vitamin|top|over|under|approx|only|all" },
    { NotAfter, 0,
        u"different|separate|people|persons|guests|guys|kids|adults|children|euro|euros|eur|dollar|dollars|usd|bucks|"
        u"pounds|pound|quid|"
        u"gbp|cent|"
        u"cents|percent|kg|kgs|g|km|m|cm|mm|ml|l|lb|lbs|oz|ft|feet|inch|inches|miles|mile|mi|metres|meters|litres|"
        u"liters|gb|mb|"
        u"tb|kb|mhz|ghz|kw|kwh|mph|kmh|cal|kcal|stars|star|points|pts|goals|items|pages|pcs|pieces|tickets|times|x|"
        u"degrees|sets|"
        u"reps|cups|cup|tbsp|tsp|bottles|boxes|copies|rooms|questions|votes|employees|members|users|billion|"
        u"million|"
        u"thousand|k|hundred|dozen|floors|of us|of them|or more|or "
        u"so|seats|desks|tables|players|teams|laps|rounds|lines|steps|"
        u"slots|parts|portions|slices|eggs|apples|bags|pairs|gallons|stops|exits|blocks|wrench|bolt|drill|bit|plywood|"
        u"nut|socket|"
        u"hose|pipe|scale|ratio|tons|tonnes|cans|a gallon|a litre|a liter|a pound|a piece|each|per|or 2|or 3|or 4|or "
        u"5|yards|"
        u"acres|coats|long|volts|watts|chapters|episodes|runs|wins|losses|sqm|sq|bedrooms|bed|baths|ply|grit|mg|mcg|iu|"
        u"fps|bpm|rpm|psi" },
    { NotAfter, 2,
        u"floor|avenue|ave|street|st|place|row|grade|century|birthday|bday|b-day|anniversary|edition|attempt|try|"
        u"season|episode|"
        u"chapter|quarter|percentile|generation|gen|amendment|step|choice|option|half|wave|draft|round|class|infantry|"
        u"division|"
        u"battalion|degree|parallel|estate|party|base|inning|lane|most|best|largest|biggest|one|time|cousin|wife|"
        u"husband|child|"
        u"baby|son|daughter|book|movie|film|album|single|world "
        u"war|wheel|person|gear|dimension|symphony|movement|day|week|month|"
        u"year|version|page|item|line|act|scene|term|trimester|semester|hole|period|set|match|shot|dose|opinion|"
        u"graders|grader" },
    { NotAfter, 1, u"be|have|not|go|also|need|come|apply|want|take|arrive|enter|i|we|you|he|she|they|the|seem|cause" },
    { NameBefore, 0,
        u"mr|mrs|ms|miss|dr|black|good|ruby|high|ash|super|casual|cyber|freaky|bloody|easter|palm|throwback|giving|fat|"
        u"blue|manic|shrove|"
        u"maundy|"
        u"whit|low|mothering|lazy|stormy|tgi|wednesday|girl|man|taco|ask|dress down|gloomy|sunny" },
    { NameAfter, 0,
        u"times|night football|night live|night lights|night fever|cheri|ami|amour|best|drivers|driver|roast "
        u"recipe|school|supplement|addams|morning quarterback|blues" },
    { Scripture, 0,
        u"verse|verses|john|luke|mark|matthew|genesis|exodus|psalm|psalms|romans|corinthians|isaiah|proverbs|hebrews|"
        u"revelation|"
        u"ephesians|"
        u"philippians|galatians|acts|james|peter|timothy" },
    { Measure, 0,
        u"mix|mixed|dilute|diluted|ratio|scale|odds|pace|minute|timestamp|bleach|price|prices|cycle|cost|costs|total|"
        u"paid|chapter and verse" },
    { TimeWord, 0, u"time" },
    { Media, 0,
        u"dvd|vhs|vinyl|poster|tabs|lyrics|soundtrack|karaoke|subscription|sheet "
        u"music|blu-ray|bluray|paperback|ebook|audiobook|"
        u"gift card|song|overrated" },
    { Possessive, 0, u"my|your|his|her|our|their|its" },
    { Street, 0,
        u"street|st|avenue|ave|road|rd|lane|ln|drive|dr|square|sq|blvd|boulevard|way|place|court|terrace|crescent|"
        u"bridge|tower|hall|stadium|airport|university|hospital|school|park|station|club|cafe|view|mews|row|close|"
        u"grove|gardens|hill|walk|quay|wharf|harbor|harbour" },
    { Subject, 0, u"i|we|you|he|she|they|it|who|the|a|my|our|his|her|their|and|has|have|had|dog|cat|newly|just" },
};

constexpr DateLanguage kEnglish {
    .rows = kRows,
    .numbers
    = u"zero|one|two|three|four|five|six|seven|eight|nine|ten|eleven|twelve|thirteen|fourteen|fifteen|sixteen|"
      u"seventeen|eighteen|nineteen|twenty|twenty-one|twenty-two|twenty-three|twenty-four|twenty-five|twenty-six|"
      u"twenty-seven|twenty-eight|twenty-nine|thirty|thirty-one|thirty-two|thirty-three|thirty-four|thirty-five|"
      u"thirty-six|thirty-seven|thirty-eight|thirty-nine|forty|forty-one|forty-two|forty-three|forty-four|"
      u"forty-five|forty-six|forty-seven|forty-eight|forty-nine|fifty|fifty-one|fifty-two|fifty-three|fifty-four|"
      u"fifty-five|fifty-six|fifty-seven|fifty-eight|fifty-nine|sixty",
    .ordinals
    = u"first|second|third|fourth|fifth|sixth|seventh|eighth|ninth|tenth|eleventh|twelfth|thirteenth|fourteenth|"
      u"fifteenth|sixteenth|seventeenth|eighteenth|nineteenth|twentieth|twenty-first|twenty-second|twenty-third|"
      u"twenty-fourth|twenty-fifth|twenty-sixth|twenty-seventh|twenty-eighth|twenty-ninth|thirtieth|thirty-first",
    .monthBeforeDay = true,
    .capitalizesDays = true,
};

} // namespace

const DateLanguage &englishDateLanguage()
{
    return kEnglish;
}

} // namespace mintaro
