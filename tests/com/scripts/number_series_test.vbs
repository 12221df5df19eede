' Number series from the list of types to the generated lines, with the object of a script class as host.
Dim script, host, answer
Set script = CreateObject("Cordboard.CScript")
Set host = New Exchange
script.AddObject host

answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "the list of types", answer, True
Check "the first type", host.ValidValues(0), "EX"

host.NUMTYP = "CP"
answer = script.Run(1, "R8", "StatCheck", "NANSI", 0, Array("NUMTYP"))
Check "the check of the type gives False always", answer, False
Check "no range", host.Range, "NUMSE False"
Check "no several values", host.Multiple, "NUMSE False"

host.NUMTYP = "EX"
host.NUMSE = "1&&2"
answer = script.Run(1, "R8", "SetInfo", "NANSI", 0, Array("CMDID", "NUMSE", "NUMTYP"))
Check "too short", answer, False
Check "the message", host.Messages, "Add: NANSI 60027;"

host.NUMSE = "100"
host.Messages = ""
answer = script.Run(1, "R8", "SetInfo", "NANSI", 0, Array("CMDID", "NUMSE", "NUMTYP"))
Check "refused by the host", answer, False
Check "the host's own code", host.Messages, "Add: NANSI 60010;"

host.NUMSE = "100&&199"
Check "added", script.Run(1, "R8", "SetInfo", "NANSI", 0, Array("CMDID", "NUMSE", "NUMTYP")), True
host.NUMSE = "20&&20"
host.NUMTYP = "DN"
Check "added", script.Run(1, "R8", "SetInfo", "NANSI", 0, Array("CMDID", "NUMSE", "NUMTYP")), True

Check "generated", script.Run(1, "R8", "GenerateCmd", "NANSI", 0, Array(7)), True
Check "lines", host.Lines, "INSERT INTO BuiltCmd VALUES (7,'NANSI:NUMTYP=EX,NUMSE=100&&199;')" & vbLf & _
      "INSERT INTO BuiltCmd VALUES (7,'NANSI:NUMTYP=DN,NUMSE=20;')" & vbLf
Check "no such command", script.Run(1, "R8", "SetInfo", "nansi", 0, Array()), False
Done 14
