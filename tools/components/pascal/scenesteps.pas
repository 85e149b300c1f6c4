{ The lines of a scene, which scene.h describes, and doing what they say by late binding. }
unit SceneSteps;

{$mode objfpc}{$H+}

interface

uses
  ActiveX, Classes, ComObj, SysUtils, Variants;

type
  TSceneStep = record
    verb: string;
    { Of "control": name and place. Else: member and arguments. }
    words: TStringArray;
  end;
  TSceneSteps = array of TSceneStep;

function ReadScene(const path: string): TSceneSteps;
procedure Take(control: IDispatch; const step: TSceneStep);

implementation

function ReadScene(const path: string): TSceneSteps;
var
  lines: TStringList;
  i, space: Integer;
  rest: string;
begin
  lines := TStringList.Create;
  lines.LoadFromFile(path);
  SetLength(Result, lines.Count);
  for i := 0 to lines.Count - 1 do
  begin
    space := Pos(' ', lines[i]);
    rest := Copy(lines[i], space + 1);
    Result[i].verb := Copy(lines[i], 1, space - 1);
    if Result[i].verb = 'control' then
      Result[i].words := rest.Split([' '])
    else
      Result[i].words := rest.Split(['|']);
  end;
  lines.Free;
end;

function Call(control: IDispatch; const member: string; kind: Word; const arguments: array of string): OleVariant;
var
  name: PWideChar;
  wide: WideString;
  id, put: TDispID;
  values: array of OleVariant;
  parameters: TDispParams;
  error: TExcepInfo;
  i: Integer;
begin
  wide := UTF8Decode(member);
  name := PWideChar(wide);
  OleCheck(control.GetIDsOfNames(GUID_NULL, @name, 1, 0, @id));
  SetLength(values, Length(arguments) + 1);
  for i := 0 to High(arguments) do values[High(arguments) - i] := UTF8Decode(arguments[i]);
  put := DISPID_PROPERTYPUT;
  FillChar(parameters, SizeOf(parameters), 0);
  parameters.cArgs := Length(arguments);
  parameters.rgvarg := @values[0];
  if kind = DISPATCH_PROPERTYPUT then
  begin
    parameters.cNamedArgs := 1;
    parameters.rgdispidNamedArgs := @put;
  end;
  FillChar(error, SizeOf(error), 0);
  Result := Unassigned;
  OleCheck(control.Invoke(id, GUID_NULL, 0, kind, parameters, @Result, @error, nil));
end;

procedure Take(control: IDispatch; const step: TSceneStep);
var
  path: TStringArray;
  arguments: TStringArray;
  kind: Word;
  i: Integer;
begin
  path := step.words[0].Split(['.']);
  arguments := Copy(step.words, 1, Length(step.words) - 1);
  for i := 0 to High(path) - 1 do control := Call(control, path[i], DISPATCH_PROPERTYGET, []);
  if step.verb = 'set' then kind := DISPATCH_PROPERTYPUT else kind := DISPATCH_METHOD;
  Call(control, path[High(path)], kind, arguments);
end;

end.
