
If Failures <> 0 Then WScript.Echo "FAILED " & Failures & " of " & Checks
WScript.Echo "all checks done: " & Checks
