
if (failures != 0) WScript.Echo("FAILED " + failures + " of " + checks);
WScript.Echo("all checks done: " + checks);
