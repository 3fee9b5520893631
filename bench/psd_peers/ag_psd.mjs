// SPDX-License-Identifier: MIT
//
// node ag_psd.mjs FOLDER WIDTH HEIGHT: has ag-psd write ag-psd.psd of the layers in FOLDER, each covering the canvas, and
// prints how many milliseconds writePsd took. The layers are in memory before, and the compiler is warm.
import fs from "node:fs";
import path from "node:path";
import { createRequire } from "node:module";

const runs = 7;
const [folder, width, height] = [process.argv[2], Number(process.argv[3]), Number(process.argv[4])];
const { writePsd } = createRequire(path.join(process.cwd(), "package.json"))("ag-psd");

function pixels(name) {
  const bytes = fs.readFileSync(path.join(folder, `${name}.rgba`));
  return { width, height, data: new Uint8ClampedArray(bytes.buffer, bytes.byteOffset, bytes.length) };
}

const names = fs.readFileSync(path.join(folder, "names.txt"), "utf8").trim().split("\n");
const document = {
  width,
  height,
  imageData: pixels("merged"),
  children: names.map((name, i) => ({ name, left: 0, top: 0, right: width, bottom: height, imageData: pixels(i) })),
};

let file = writePsd(document);
const times = [];
for (let i = 0; i < runs; ++i) {
  const start = performance.now();
  file = writePsd(document);
  times.push(performance.now() - start);
}
fs.writeFileSync(path.join(folder, "ag-psd.psd"), new Uint8Array(file));
console.log(times.sort((a, b) => a - b)[runs >> 1]);
