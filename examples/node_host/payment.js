#!/usr/bin/env node
// A host for Node that loads no library: a form in a process of its own, asked for and answered in JSON.
//
//   node payment.js [SCREEN]
"use strict";

const { spawn } = require("node:child_process");

// Asks the user for what goes with a payment. Resolves to the records, or to false where the user cancels; rejects with
// an Error that has `number`, `source`, `remedy`, `key` and `line`.
function collect(screen, payment, options = {}) {
  return new Promise((resolve, reject) => {
    const program = options.program || process.env.FISCALON_PROGRAM || "fiscalon";
    const child = spawn(program, ["collect", "--json", ...(options.arguments || [])]);
    const told = { stdout: [], stderr: [] };
    for (const stream of ["stdout", "stderr"]) child[stream].on("data", (piece) => told[stream].push(piece));
    child.on("error", reject);
    child.stdin.on("error", () => {}); // a program that ended before it read says why itself
    child.on("close", (status, signal) => {
      const said = Buffer.concat(told.stderr).toString().trim();
      if (signal) return reject(new Error(`the form was ended by ${signal}`));
      let answer;
      try {
        answer = JSON.parse(Buffer.concat(told.stdout).toString());
      } catch {
        return reject(new Error(said || `the program ended with ${status} and no answer`));
      }
      if (answer.error) return reject(Object.assign(new Error(answer.error.description), answer.error));
      resolve(answer.result ? answer.records || [] : false);
    });
    child.stdin.end(JSON.stringify({ screen, payment }));
  });
}

async function main() {
  const payment = { CompName: "Summit Levies", PaidAmount: "12345", PaidDate: "06152026", SeqNumber: "0001" };
  try {
    const records = await collect(process.argv[2] || "15", payment, { arguments: process.argv.slice(3) });
    if (records === false) {
      console.error("Cancelled.");
      process.exitCode = 1;
    } else {
      for (const record of records) console.log(record.Description);
    }
  } catch (error) {
    console.error(`${error.source || "host"}: ${error.message}` + (error.remedy ? `\n  ${error.remedy}` : ""));
    process.exitCode = 2;
  }
}

if (require.main === module) main();
module.exports = { collect };
