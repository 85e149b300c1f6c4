{ A form with controls in containers of Lazarus: form SCENE FILE

  Shows the controls of the scene. When the form is closed, it is saved in the file as forms are, read from there and shown
  again. Prints a line for each thing tried, "at NAME LEFT TOP WIDTH HEIGHT" for each control, "event NAME NUMBER ARGUMENTS" for
  what the controls raise, and "shown" when a form is there. }
program form;

{$mode objfpc}{$H+}

uses
  Interfaces, Checks, Classes, Controls, Forms, Graphics, KeptControl, LResources, SceneSteps, ShownForms, SysUtils;

type
  TSceneForm = class(TForm)
    { As forms are made whose controls are not among the program's resources. }
    constructor Create(TheOwner: TComponent); override;
  end;

constructor TSceneForm.Create(TheOwner: TComponent);
begin
  inherited CreateNew(TheOwner);
end;

function MakeForm(const path: string): TSceneForm;
var
  step: TSceneStep;
  container: TKeptControl;
begin
  Result := TSceneForm.Create(Application);
  Result.Name := 'SceneForm';
  Result.Caption := 'Form';
  Result.Color := TColor($C0C0C0);
  Result.SetBounds(100, 60, 640, 440);
  for step in ReadScene(path) do
    if step.verb = 'control' then
    begin
      container := TKeptControl.Create(Result);
      container.Name := step.words[0];
      container.OleClassName := 'LevelWidgets.' + step.words[0];
      container.SetBounds(StrToInt(step.words[1]), StrToInt(step.words[2]), StrToInt(step.words[3]), StrToInt(step.words[4]));
      container.Start;
      Check(container.Name + ' is shown', container.Active);
    end
    else
      Take(container.ComServer, step);
end;

type
  TClassFinder = class
    procedure Find(Reader: TReader; const name: string; var found: TComponentClass);
  end;

procedure TClassFinder.Find(Reader: TReader; const name: string; var found: TComponentClass);
begin
  if name = 'TKeptControl' then found := TKeptControl;
  if name = 'TSceneForm' then found := TSceneForm;
end;

function LoadForm(stream: TStream): TSceneForm;
var
  component: TComponent;
  classes: TClassFinder;
  i: Integer;
begin
  component := nil;
  classes := TClassFinder.Create;
  ReadComponentFromTextStream(stream, component, @classes.Find, Application);
  Result := component as TSceneForm;
  for i := 0 to Result.ControlCount - 1 do (Result.Controls[i] as TKeptControl).Start;
  classes.Free;
end;

function SavedForm(shown: TSceneForm): string;
var
  stream: TStringStream;
begin
  stream := TStringStream.Create('');
  WriteComponentAsTextToStream(stream, shown);
  Result := stream.DataString;
  stream.Free;
end;

{ Without the head of the form, in which Lazarus notes that it was loaded. }
function ControlsOf(const saved: string): string;
begin
  Result := Trim(Copy(saved, Pos('  object', saved)));
end;

{ The items of a list are not saved; only how many there are. }
procedure ForgetItems(list: OleVariant);
begin
  list.Clear;
end;

procedure Run(const scene, saved_path: string);
var
  first, second: TSceneForm;
  saved: TStringStream;
begin
  first := MakeForm(scene);
  ShowUntilClosed(first);
  ForgetItems((first.FindComponent('FlatDropDown') as TKeptControl).ComServer);
  saved := TStringStream.Create(SavedForm(first));
  saved.SaveToFile(saved_path);
  Check('A form with the controls is saved', Pos('ControlState', saved.DataString) > 0);
  first.Free;
  second := LoadForm(saved);
  Check('A form with the controls is loaded', 9, second.ControlCount);
  ShowUntilClosed(second);
  Check('What was loaded is saved alike', ControlsOf(saved.DataString), ControlsOf(SavedForm(second)));
  second.Free;
  saved.Free;
end;

begin
  Application.Initialize;
  try
    Run(ParamStr(1), ParamStr(2));
  except
    on error: Exception do Check('no error', '', error.ClassName + ': ' + error.Message);
  end;
  Say('end');
end.
