{ A line for each thing tried, and "end" when a program came to its end. }
unit Checks;

{$mode objfpc}{$H+}

interface

procedure Check(const what, expected, actual: string);
procedure Check(const what: string; expected, actual: Int64);
procedure Check(const what: string; is_so: Boolean);
procedure Say(const line: string);

implementation

procedure Say(const line: string);
begin
  WriteLn(line);
  Flush(Output);
end;

procedure Check(const what, expected, actual: string);
begin
  if expected = actual then
    Say('ok ' + what)
  else
    Say('FAILED ' + what + ': expected ' + expected + ', is ' + actual);
end;

procedure Check(const what: string; expected, actual: Int64);
var
  expected_text, actual_text: string;
begin
  Str(expected, expected_text);
  Str(actual, actual_text);
  Check(what, expected_text, actual_text);
end;

procedure Check(const what: string; is_so: Boolean);
begin
  if is_so then
    Say('ok ' + what)
  else
    Say('FAILED ' + what + ': it is not so');
end;

end.
