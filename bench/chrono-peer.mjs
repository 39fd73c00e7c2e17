// The peer of the sentences: reads lines as `mintaroctl parse --json-lines` takes them and prints the seconds that
// chrono-node needs for all of them, once it is warm. Usage: node chrono-peer.mjs MODULES FILE...
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { resolve } from "node:path";

const [modules, ...files] = process.argv.slice(2);
const chrono = createRequire(resolve(modules) + "/")("chrono-node");
const lines = files.flatMap((file) => readFileSync(file, "utf8").split("\n")).filter(Boolean).map((line) => JSON.parse(line));
const questions = lines.map(({ text, ref, locale }) => ({
    text,
    ref: new Date(ref),
    parser: locale.startsWith("it") ? chrono.it : locale === "en_GB" ? chrono.en.GB : chrono.en,
}));

function pass() {
    const start = process.hrtime.bigint();
    for (const { text, ref, parser } of questions)
        parser.parse(text, ref, { forwardDate: true });
    return Number(process.hrtime.bigint() - start) / 1e9;
}

const warmingUp = 4;
for (let i = 0; i < warmingUp; ++i)
    pass();
console.log(pass());
