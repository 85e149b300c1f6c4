{ A form of the classes that import_library has made of the type library: containers, and handlers with typed arguments.
  Prints "at NAME LEFT TOP WIDTH HEIGHT", "shown", what the handlers see, and what became of it when the form is closed. }
program imported_form;

{$mode objfpc}{$H+}

uses
  Interfaces, Checks, Classes, Controls, Forms, LevelWidgets_1_0_TLB, ShownForms, SysUtils;

type
  TMain = class(TForm)
    words: TAxcFlatTextBox;
    grid: TAxcFlatGrid;
    procedure MakeCapital(Sender: TObject; var KeyAscii: Smallint);
    procedure CorrectCell(Sender: TObject; RowIndex, ColumnIndex: Integer; var NewValue: WideString; var Cancel: WordBool);
    procedure MakeControls;
  end;

procedure TMain.MakeCapital(Sender: TObject; var KeyAscii: Smallint);
begin
  Say('event KeyPress ' + IntToStr(KeyAscii));
  if KeyAscii in [Ord('a')..Ord('z')] then Dec(KeyAscii, 32);
end;

procedure TMain.CorrectCell(Sender: TObject; RowIndex, ColumnIndex: Integer; var NewValue: WideString; var Cancel: WordBool);
begin
  Say(Format('event BeforeCellEdit %d %d %s', [RowIndex, ColumnIndex, NewValue]));
  if NewValue = 'no' then
    Cancel := True
  else
    NewValue := UpperCase(NewValue);
end;

procedure TMain.MakeControls;
begin
  words := TAxcFlatTextBox.Create(Self);
  words.Name := 'FlatTextBox';
  words.SetBounds(16, 16, 160, 24);
  words.OnKeyPress := @MakeCapital;
  words.Active := True;
  grid := TAxcFlatGrid.Create(Self);
  grid.Name := 'FlatGrid';
  grid.SetBounds(16, 56, 300, 160);
  grid.OnBeforeCellEdit := @CorrectCell;
  grid.Active := True;
  grid.OleServer.Columns.Add('Article', 3000, ksxLeft, ksxLeft, ksxEditText, True, '', '', 0);
  grid.OleServer.AllowEdits := True;
  grid.OleServer.RowCount := 3;
end;

var
  main: TMain;
  cells: OleVariant;

begin
  Application.Initialize;
  try
    main := TMain.CreateNew(Application);
    main.Caption := 'Imported form';
    main.SetBounds(100, 60, 400, 300);
    main.MakeControls;
    ShowUntilClosed(main);
    Check('A handler changes a typed key', 'AB', string(main.words.OleServer.Text_));
    { By late binding: the importer gives a property one index at most. }
    cells := main.grid.OleServer;
    Check('A handler changes a typed text', 'NUT', string(cells.RowData[1, 1]));
    main.Free;
  except
    on error: Exception do Check('no error', '', error.ClassName + ': ' + error.Message);
  end;
  Say('end');
end.
