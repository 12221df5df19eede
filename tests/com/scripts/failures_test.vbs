' Failures as a script sees them in Err, and the life of the host.
Class Failing
  Public Function scSQLSelectValuesAndDesc()
    Err.Raise 1234, "the host", "the list is locked"
  End Function
End Class

Class Listing
  Public Function scIsValueEqual(value)
    scIsValueEqual = Array(1)
  End Function
End Class

Dim script, other, host, answer, parameters
Set script = CreateObject("Cordboard.CScript")
On Error Resume Next

answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "no host", CInt(Err.Number), 91
Check "no host, in words", Err.Description, "the library has no host: call AddObject first"
Check "no host, told by", Err.Source, "Cordboard.CScript"
Err.Clear

script.AddObject New Failing
answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "a failing host", Hex(Err.Number), "80040201"
Check "a failing host, in words", Left(Err.Description, 26), "scSQLSelectValuesAndDesc: "
Check "with its number", InStr(Err.Description, "(0x800A04D2)") > 0, True
Err.Clear

answer = script.Run(1, "R8", "StatCheck", "NANSI", 0, Array("NUMTYP"))
Check "an operation that the host lacks", Hex(Err.Number), "80040201"
Check "in words", CInt(InStr(Err.Description, "scIsValueEqual: the host does not know the operation")), 1
Err.Clear

script.AddObject New Listing
answer = script.Run(1, "R8", "StatCheck", "NANSI", 0, Array("NUMTYP"))
Check "an answer that is no value", CInt(Err.Number), 13
Err.Clear

answer = script.Run(1, "R8", "StatCheck", "NANSI", 0, Array())
Check "no parameter", CInt(Err.Number), 9
Err.Clear

answer = script.Run("many", "R8", "StatCheck", "NANSI", 0, Array("NUMTYP"))
Check "a definition that is no number", CInt(Err.Number), 13
Err.Clear

Set host = New Exchange
script.AddObject host
answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "with a host again", answer, True
Check "no failure", CInt(Err.Number), 0

' The end of any one object drops the host for all.
Set other = CreateObject("Cordboard.CScript")
answer = other.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "the host of all", answer, True
Set other = Nothing
answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "dropped", CInt(Err.Number), 91
Err.Clear

script.AddObject host
script.Destroy
answer = script.Run(1, "R8", "GetValidValForParam", "NANSI", 0, Array("NUMTYP"))
Check "destroyed", CInt(Err.Number), 91
Done 16
