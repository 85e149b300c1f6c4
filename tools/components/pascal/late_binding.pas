{ What a Pascal program does with controls that it knows by name only, in no window. }
program late_binding;

{$mode objfpc}{$H+}

uses
  ActiveX, Checks, Classes, ComObj, EventSink, SysUtils, Variants;

const
  names: array[1..9] of string = ('FlatButton', 'FlatLabel', 'FlatTabStrip', 'FlatScroll', 'FlatTextBox', 'FlatDropDown',
    'FlatCalculator', 'FlatCalendar', 'FlatGrid');

type
  { Notes the events of a control with their arguments. }
  TListener = class
    seen: string;
    procedure Note(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word; Params: TDispParams;
      VarResult, ExcepInfo, ArgErr: Pointer);
  end;

procedure TListener.Note(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word;
  Params: TDispParams; VarResult, ExcepInfo, ArgErr: Pointer);
var
  i: Integer;
begin
  seen := seen + IntToStr(DispID) + '(';
  for i := Params.cArgs - 1 downto 0 do
    seen := seen + IntToStr(Params.rgvarg^[i].vt) + ':' + IntToStr(Params.rgvarg^[i].iVal) + ' ';
  seen := Trim(seen) + ')';
end;

{ Of the interface that the class says its events have. }
function EventsOf(const control: IDispatch): TGUID;
var
  info: IProvideClassInfo2;
begin
  info := control as IProvideClassInfo2;
  OleCheck(info.GetGUID(1, Result));
end;

procedure CheckCreation;
var
  name: string;
begin
  for name in names do
    try
      Check(name + ' is created by its name', Assigned(CreateOleObject('LevelWidgets.' + name)));
    except
      on error: Exception do Check(name + ' is created by its name', 'no error', error.Message);
    end;
end;

procedure CheckProperties;
var
  button, font: OleVariant;
begin
  button := CreateOleObject('LevelWidgets.FlatButton');
  button.Caption := '&Go';
  Check('A string is read as it was written', '&Go', button.caption);
  button.Enabled := False;
  Check('A boolean is read as it was written', not Boolean(button.Enabled));
  button.BackColor := $00030201;
  Check('A colour is read as it was written', $00030201, button.BackColor);
  font := button.Font;
  font.Name := 'Tahoma';
  font.Size := 12;
  Check('A font is shared', 'Tahoma 12', button.Font.Name + ' ' + VarToStr(button.Font.Size));
end;

procedure CheckGrid;
var
  grid, columns, column: OleVariant;
  found: Integer;
begin
  grid := CreateOleObject('LevelWidgets.FlatGrid');
  columns := grid.Columns;
  columns.Add('Article', 1500);
  column := columns.Add('Price', 1200, EmptyParam, 1, EmptyParam, True, '0.00', 'price');
  Check('A missing argument is left out', 0, column.HeaderAlignment);
  Check('An argument after it arrives', 1, column.Alignment);
  Check('A collection takes a position', 'Article', columns.Item(1).Caption);
  Check('A collection takes a key', 'Price', columns.Item('price').Caption);
  Check('A collection counts', 2, columns.Count);
  grid.RowCount := 4;
  grid.RowData[2, 1] := 'Bolt';
  Check('An indexed property', 'Bolt', grid.RowData[2, 1]);
  grid.RowHeight := 225;
  grid.ShowColumnHeaders := False;
  found := 0;
  Check('A method returns a value', 2, grid.HitTest(600, 300, found));
  Check('A method fills a typed argument by reference', 2, found);
end;

procedure CheckErrors;
var
  scroll: OleVariant;
begin
  scroll := CreateOleObject('LevelWidgets.FlatScroll');
  scroll.Value := 42;
  try
    scroll.Value := 900;
    Check('A refused value raises an error', False);
  except
    on error: EOleException do
    begin
      Check('A refused value has its number', Int64(LongInt($800403EA)), error.ErrorCode);
      Check('A refused value has its source', 'LevelWidgets.FlatScroll', error.Source);
      Check('A refused value has its description', 'Invalid Value', error.Message);
    end;
  end;
  Check('A refused value changes nothing', 42, scroll.Value);
  try
    scroll.Colour := 1;
    Check('An unknown name raises an error', False);
  except
    on error: EOleError do Check('An unknown name is in the message', Pos('Colour', error.Message) > 0);
  end;
end;

procedure CheckEvents;
var
  scroll, strip: OleVariant;
  listener: TListener;
  scroll_events, strip_events: TEventSink;
begin
  scroll := CreateOleObject('LevelWidgets.FlatScroll');
  strip := CreateOleObject('LevelWidgets.FlatTabStrip');
  listener := TListener.Create;
  scroll_events := TEventSink.Create(nil);
  strip_events := TEventSink.Create(nil);
  scroll_events.OnInvoke := @listener.Note;
  strip_events.OnInvoke := @listener.Note;
  scroll_events.Connect(scroll, EventsOf(scroll));
  strip_events.Connect(strip, EventsOf(strip));
  scroll.Value := 5;
  Check('An event without arguments', '1()', listener.seen);
  strip.TabCount := 3;
  strip.SelectedTab := 1;
  listener.seen := '';
  strip.SelectedTab := 2;
  Check('An event with typed arguments', '9(2:1 2:2)', listener.seen);
  listener.seen := '';
  strip.SelectedTab := 3;
  scroll_events.Free;
  scroll.Value := 6;
  Check('A listener that has left hears nothing', '9(2:2 2:3)', listener.seen);
  strip_events.Free;
  listener.Free;
end;

procedure Attempt(part: TProcedure);
begin
  try
    part();
  except
    on error: Exception do Check('no error', '', error.ClassName + ': ' + error.Message);
  end;
end;

begin
  OleInitialize(nil);
  Attempt(@CheckCreation);
  Attempt(@CheckProperties);
  Attempt(@CheckGrid);
  Attempt(@CheckErrors);
  Attempt(@CheckEvents);
  Say('end');
end.
