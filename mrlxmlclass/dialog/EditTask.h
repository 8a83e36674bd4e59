#pragma once

#include <memory>

#include "mrlxmlclass/dialog/EditTaskView.h"
#include "mrlxmlclass/dialog/GridControl.h"
#include "mrlxmlclass/dialog/frmurl.h"
#include "mrlxmlclass/runtime/ByRef.h"
#include "mrlxmlclass/runtime/Collection.h"
#include "mrlxmlclass/runtime/Date.h"

namespace mrlxmlclass {

class Application;
class NotesCls;
class NotesCol;
class PeopleCol;
class TaskAssigmentRelationCol;
class TaskNoteRelationCol;
class TasksCls;
class TasksCol;

/// The modal dialog in which a person edits one task: what each control shows, and what follows when the person uses
/// one. It knows no toolkit; an EditTaskView shows it. `Application.showtaskinfo` opens it.
///
/// It works on a clone of the task, whose date rules run as the person types; the stored task is touched when the
/// person leaves with `CmdOK`. Three things reach further at once: a new start measures the lead times of the stored
/// task, a typed name adds a person to the project, and the clone's dates take part in the project's earliest and
/// latest date.
///
/// A field that the program fills behaves as if the person had typed, except while the dialog is loaded and while that
/// very field is being answered; a date that is shown is nobody's choice. Whatever goes wrong in an event is recorded
/// under the event's name, and the dialog stays open.
///
/// Contents
///   Opening and closing      dialog/EditTask.cpp, dialog/EditTask_loading.cpp
///   Controls
///   Fields                   dialog/EditTask_fields.cpp
///   Predecessors             dialog/EditTask_predecessors.cpp
///   People                   dialog/EditTask_resources.cpp
///   Notes and attachments    dialog/EditTask_attachments.cpp
///   Editing a cell           dialog/EditTask_cells.cpp
///   Saving (private)         dialog/EditTask_save.cpp
class EditTask final : public Counted, private ControlWatcher {
public:
    static constexpr int kTabs = 4;
    /// What `KeyPress` events drop a key with, and the keys that have a meaning.
    static constexpr int kNoKey = 0;
    static constexpr int kBackspace = 8;
    static constexpr int kEnter = 13;
    static constexpr int kDelete = 46;
    static constexpr int kV = 86;
    static constexpr int kControlDown = 2;  ///< in `Shift`
    /// The data of the row through which a new person is typed in.
    static constexpr const char* kNewPerson = "newperson";
    /// What the dialog puts behind a percentage.
    static constexpr const char* kPercentTail = " %";

    // --- Opening and closing ----------------------------------------------------------------------------------------

    /// Makes ready for the screen of the host that opens the dialog, 1 to 9: which tabs are on, what shows. A task with
    /// children keeps its dates, its duration and its cost as they are, wherever it is opened. Gives the tab to begin
    /// with.
    Long Prepare(Integer Fromwhere, Boolean has_children, const Ref<Application>& oApplication);
    /// Fills the dialog, shows it, and returns when it is closed: True when the person left with `CmdOK` and another
    /// duration. `Ressource` holds all texts, see examples/task_dialog_texts.h; one that is missing is recorded (5),
    /// and nothing shows.
    Boolean GetTaskInfo(const Variant& aTaskKey, const Ref<Application>& oApplication, const Ref<TasksCol>& oTaskCol,
                        const Ref<Collection>& Ressource, Long start_tab, const String& p_date_format,
                        const String& font_name, const String& font_size);
    /// Closes it without saving; the fields stay. CmdOK_Click does nothing from then on.
    void Unload();
    /// The window was closed: as CmdCancel_Click. While CmdOK_Click saves, neither does anything.
    void Form_Closed();
    void Form_Activate();
    void TabTask_Click();
    void CmdOK_Click(Integer Index);
    void CmdCancel_Click(Integer Index);
    void CmdHelp_Click(Integer Index);

    /// The clone that the dialog works on; nothing before GetTaskInfo.
    const Ref<TasksCls>& Task() const { return task_; }
    /// True on Cancel; on OK it depends on the duration alone.
    Boolean Unchanged() const { return unchanged_; }
    /// How the person left.
    enum class Ending {
        Unsaved,  ///< not by `CmdOK`, or not yet
        Saved,    ///< by `CmdOK`, and all was saved
        Failed,   ///< by `CmdOK`, and a failure was recorded while it saved
    };
    Ending ending() const { return ending_; }
    /// The tab that Form_Activate shows.
    Long StartTab() const { return start_tab_; }
    /// By how much the lag edited last changed.
    Integer LagDifference() const { return lag_difference_; }
    Boolean PredecessorsChanged() const { return predecessors_changed_; }
    Boolean ResourcesChanged() const { return resources_changed_; }

    // --- Controls ---------------------------------------------------------------------------------------------------

    String Caption;

    TabControl TabTask{*this, "TabTask", kTabs};
    ControlArray<PlainControl> Picgeneral{*this, "Picgeneral", kTabs};
    ControlArray<PlainControl> Picgen{*this, "Picgen", kTabs};
    ControlArray<PlainControl> CmdOK{*this, "CmdOK", kTabs};
    ControlArray<PlainControl> CmdCancel{*this, "CmdCancel", kTabs};
    ControlArray<PlainControl> CmdHelp{*this, "CmdHelp", kTabs};
    ControlArray<PlainControl> frmTaskPro{*this, "frmTaskPro", kTabs};
    ControlArray<TextControl> TxtName{*this, "TxtName", kTabs};
    ControlArray<PlainControl> lblName{*this, "lblName", kTabs};

    TextControl Txtcost{*this, "Txtcost"};
    ControlArray<PlainControl> lblcost{*this, "lblcost", 1};
    TextControl TxtPercentComplet{*this, "TxtPercentComplet"};
    PlainControl lblPercentComplet{*this, "lblPercentComplet"};
    PlainControl VScrollPercentComplete{*this, "VScrollPercentComplete"};
    PlainControl FrStartDate{*this, "FrStartDate"};
    DateControl DTPickerStart{*this, "DTPickerStart"};
    DateControl DTPickerEnd{*this, "DTPickerEnd"};
    ControlArray<TextControl> TxtDurtion{*this, "TxtDurtion", 1};
    ControlArray<PlainControl> VScrollDuration{*this, "VScrollDuration", 1};
    CheckControl chkAsMilistones{*this, "chkAsMilistones"};
    PlainControl LblStartDate{*this, "LblStartDate"};
    PlainControl LblEndDate{*this, "LblEndDate"};
    ControlArray<PlainControl> LblDuration{*this, "LblDuration", 1};

    PlainControl frpred{*this, "frpred"};
    GridControl VSFlexGridPredecessor{*this, "VSFlexGridPredecessor", {"ID", "Name", "Type", "Lag"}, 1};

    PlainControl FrNote{*this, "FrNote"};
    TextControl txtNote{*this, "txtNote"};
    PlainControl Frattach{*this, "Frattach"};
    GridControl gridattachement{*this, "gridattachement", {""}, 0};
    PlainControl Cmdlink{*this, "Cmdlink"};
    PlainControl CmdAttach{*this, "CmdAttach"};
    PlainControl CmdRemove{*this, "CmdRemove"};
    PlainControl mnuFile{*this, "mnuFile"};
    PlainControl mnuLinkNote{*this, "mnuLinkNote"};
    PlainControl mnuunattach{*this, "mnuunattach"};

    PlainControl FrAssi{*this, "FrAssi"};
    GridControl VSFlexGridResource{*this, "VSFlexGridResource", {"", ""}, 1};

    // --- Fields -----------------------------------------------------------------------------------------------------

    /// Of these the fields run the ones named `_Change`, and the box its `_Click`, by themselves.
    void chkAsMilistones_Click();
    void DTPickerStart_Change();
    void DTPickerEnd_Change();
    /// Whether the picker shows a date that only stands in for one that the task does not have: then it is a change
    /// when the person chooses that very date.
    Boolean StandsIn(const DateControl& picker) const;
    void TxtDurtion_Change(Integer Index);
    void TxtDurtion_KeyPress(Integer Index, ByRef<Integer> KeyAscii);
    void TxtDurtion_Validate(Integer Index);
    void VScrollDuration_DownClick(Integer Index);
    void VScrollDuration_UpClick(Integer Index);
    void TxtPercentComplet_Click();
    void TxtPercentComplet_Change();
    void VScrollPercentComplete_DownClick();
    void VScrollPercentComplete_UpClick();
    void TxtName_Validate(Integer Index);
    void Txtcost_Change();
    void Txtcost_KeyPress(ByRef<Integer> KeyAscii);

    // --- Predecessors -----------------------------------------------------------------------------------------------

    void VSFlexGridPredecessor_BeforeEdit(Long Row, Long Col, ByRef<Boolean> Cancel);
    void VSFlexGridPredecessor_KeyPressEdit(Long Row, Long Col, ByRef<Integer> KeyAscii);
    void VSFlexGridPredecessor_ComboCloseUp(Long Row, Long Col, ByRef<Boolean> FinishEdit);
    void VSFlexGridPredecessor_AfterEdit(Long Row, Long Col);
    void VSFlexGridPredecessor_KeyDown(Integer KeyCode, Integer Shift);

    // --- People -----------------------------------------------------------------------------------------------------

    void VSFlexGridResource_Click(Long Row);
    void VSFlexGridResource_BeforeEdit(Long Row, Long Col, ByRef<Boolean> Cancel);
    void VSFlexGridResource_AfterEdit(Long Row, Long Col);
    void VSFlexGridResource_BeforeRowColChange(Long OldRow, Long OldCol, Long NewRow, Long NewCol,
                                               ByRef<Boolean> Cancel);
    void VSFlexGridResource_ComboCloseUp(Long Row, Long Col, ByRef<Boolean> FinishEdit);
    /// Nothing follows from a key in this table.
    void VSFlexGridResource_KeyDown(Integer /*KeyCode*/, Integer /*Shift*/) {}
    void VSFlexGridResource_LostFocus();

    // --- Notes and attachments --------------------------------------------------------------------------------------

    void txtNote_KeyDown(ByRef<Integer> KeyCode, Integer Shift);
    void txtNote_RightButton();
    void CmdAttach_Click() { mnuLinkNote_Click(); }
    void mnuLinkNote_Click();
    void Cmdlink_Click();
    void CmdRemove_Click() { mnuunattach_Click(); }
    void mnuunattach_Click();
    void gridattachement_DblClick();
    void gridattachement_KeyDown(Integer KeyCode);

    // --- Editing a cell ---------------------------------------------------------------------------------------------
    // What a table on the screen does around the events of an edit, for either of the two grids that can be edited, and
    // what any table asks to show what can be done with it.

    /// Whether a cell of that column offers a list when it is edited.
    Boolean OffersList(const GridControl& grid, Long col) const;
    /// Whether a single click on the cell can only mean that it is to be edited.
    Boolean ClickEdits(const GridControl& grid, Long row, Long col) const;
    /// The column that is edited when a key is typed somewhere in the row.
    Long ColToEdit(const GridControl& grid, Long row, Long col) const;
    /// Whether the cell carries the tick that tells whether its row is selected.
    Boolean CarriesTick(const GridControl& grid, Long row, Long col) const;
    /// Makes a cell the current one.
    void MoveTo(GridControl& grid, Long row, Long col);
    /// False when the cell cannot be edited. Otherwise an editor opens: a list where the grid then has a `ComboList`,
    /// else a field of `EditMaxLength` characters with the cell's text.
    Boolean BeginEdit(GridControl& grid, Long row, Long col);
    /// Before a key goes into the editor, in which `text` stands: gives the key, or kNoKey to drop it; kEnter ends the
    /// edit.
    Integer EditKey(GridControl& grid, const String& text, Integer KeyAscii);
    /// The person chose an entry of the list; that ends the edit.
    void EndEdit(GridControl& grid, const ComboEntry& chosen);
    /// The person left the cell with that text.
    void EndEdit(GridControl& grid, const String& text);

private:
    ~EditTask() override = default;

    /// Runs the rules of a field unless they are running.
    template <class Rules>
    void Answer(const Control& field, const char* label, Rules&& rules);

    void Refresh(const Control& control) override;
    void Changed(Control& control) override;

    EditTaskView& View() const;
    Ref<TasksCls> Stored() const;
    String KeyAsText() const;

    void PutFields(Boolean read_only_name);
    void PutNotes();
    void PutTexts(const Collection& texts);
    void PutFonts(const ControlFont& font);
    void LoadPredecessor(GridControl& grid);
    void LoadResourceAsList(GridControl& grid, const Ref<PeopleCol>& people);
    void ShowModally();

    /// Takes the duration of that element onto the clone; what follows shows in all.
    void SetTxtValue(Integer Index);
    /// No dates and no duration.
    void PutDatenull();
    Boolean ChangeCost();
    void ShowProgress(std::int64_t percent);
    void ShowDates();
    void ShowDuration(Integer Index);
    void TakeDuration(Integer Index);
    void StartBehind(TasksCls& predecessor, Integer lag);
    void RunAfterEdit(GridControl& grid, Long row, Long col);

    Variant FormatCellLink(const String& link, const String& NoteKey, Boolean isUrl);
    /// Opens the link of a note of the stored task; a key that is none of its notes is taken as the link itself. Gives
    /// what the shell gives.
    Long ExecuteLInk(const String& key);

    /// Carries what the person did into the stored task, in a fixed order. What was saved before a failure stands.
    Boolean SaveTaskInfo();
    Boolean AddAllLink();
    Boolean RemoveAllLink();
    Boolean RemoveFirstNote();
    void SaveNameAndDates();
    void SaveProgressAndCost();
    void SavePredecessors();
    void SaveNoteText();
    void DescribeFirstNote(const String& text);
    /// A new note of the task, which `describe(note)` fills.
    template <class Describe>
    void AddNote(Describe&& describe);
    void RemoveNote(const String& note_key);

    Variant key_;
    Ref<TasksCol> tasks_;
    Ref<TasksCls> task_;
    // Of the session, as they were when the dialog was opened: a host that starts another project meanwhile keeps it
    // clean.
    Ref<TasksCol> plan_;
    Ref<PeopleCol> people_;
    Ref<TaskAssigmentRelationCol> assignments_;
    Ref<NotesCol> notes_;
    Ref<TaskNoteRelationCol> note_relations_;
    String predecessor_names_;
    String predecessor_positions_;
    Ref<Collection> removed_predecessors_;
    String previous_row_key_;
    Integer previous_lag_;
    Integer lag_difference_;
    Ref<Collection> removed_attachments_;
    Long start_tab_;
    Boolean predecessors_changed_;
    Boolean resources_changed_;
    Boolean unchanged_;
    Ending ending_ = Ending::Unsaved;
    String new_person_caption_;   ///< text "10658"
    String choose_file_title_;    ///< text "10659"
    String link_failed_message_;  ///< text "10351"
    frmurl url_form_;

    std::unique_ptr<EditTaskView> view_;  ///< while the dialog shows
    bool loading_ = false;
    bool saving_ = false;
    bool closed_ = false;
    std::vector<const Control*> answered_;  ///< fields whose rules are running
};

}  // namespace mrlxmlclass
