// What every JScript test begins with.
var checks = 0, failures = 0;
function same(what, found, expected) {
  checks++;
  if (found === expected) return;
  failures++;
  WScript.Echo("FAILED " + what + ": " + found + ", expected " + expected);
}
function raises(what, number, body) {
  try { body(); } catch (e) { same(what, e.number & 0xFFFF, number); return; }
  same(what, "no error", number);
}
