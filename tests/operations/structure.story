Bills of material, their explosion, component lines, and references.

== BomHeaderCreate
entry BomHeaderCreate site=A update_count=5
answer QV_Open_Object -7 Q100 - No such header
use BomHeaderCreate ~EC Number=ec-12a | ~Item Number=br-1b | [desc] 30
start
defaults usual
each input: 2 @-   <>-.
listing default: @-     ... plus default attributes .... | @-     <>-.
listing name: @- Printing Selected Attributes .... | @-     <name>-.
log @ - ItemNumber= <Item Number> , EcNumber= <EC Number>
each default: log @ -  <name> = <value>
new BomHeader
2 @- Set Required Fields for cl_open.
set @-   logical_key@item_number=<Item Number>-
set @-   il_ec_number=<EC Number>-
set @-   logical_key@loc_id=-
2 @- Set  the Subscribes for the cl_open.
2 @-   db_object_id. > QV_Subscribe_Object_Attr(obj, "db_object_id") = 0
2 @- Open BomHeader Object. >! QV_Open_Object(obj) = -7
! Q100 - No such header
2 @- Set Required Fields for cl_save.
set? @-   update_count=-
each default: set @-     <>-
subscribe @- Set  the Subscribes for the Save.
2 @- Execute Save method. > QV_Save_Object(obj) = 0
exit

== BomHeaderCreateLeavesAHeaderThatIsThere
entry BomHeaderCreate site=A
use BomHeaderCreate 1=EC-1 | 2=BR-1 | [desc] 30
part
2 @- Open BomHeader Object. > QV_Open_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[desc]

== BomExplode
record
record
after BomExplode item_number=br-1 | [level] 50
use BomExplode item_number=br-1 | max_level=2 | [level, comp_item_number] 50
also item_number=null
start
listing input: @Printing Explosion Parameters .... | @   <>-.
listing name: @Printing Selected Attributes .... | @   <name>-.
result List
calls DestroyListOrReport
2 @-----Start-------. >! QV_Destroy_Report(report) = 0
> QV_Destroy_List(list) = 0
end 2 @-----Exit--------.
returns
> QV_Create_Report(+report, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
each input: > QV_Set_Report_Attr(report, "<name>", "<value>") = 0
> QV_Set_Report_Attr(report, "itm_doc_str", "*") = 0
each name: > QV_Subscribe_Report_Attr(report, "<name>") = 0
> QV_Generate_Report(report, +list) = 0
count 2
end 2 @-----Exit-----------entries/rc=#-------.

== BomExplodeReplacesAReportThatCannotBeGivenBack
answer QV_Generate_Report -7 E1 - no rows
after BomExplode item_number=br-1 | [level] 50
answer QV_Destroy_Report -7 E1 - in use
use BomExplode item_number=br-1 | [level] 50
part
calls DestroyListOrReport
2 @-----Start-------. > QV_Destroy_Report(report1) = -7
! E1 - in use
2 @-----Exit--------.
returns
> QV_Create_Report(report2, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0

== ComponentCreate
use ComponentCreate EcNumber=ec-1 | ItemNumber=br-1 | ComponentItemNumber=pl-2 | ComponentSequenceNumber=10 | ComponentType=p | [comp_ref] 30
also ComponentType=
start
listing input: @- Input Attributes .... | @-    <>-.
listing name: @- Selected Attributes are .... | @-    <name>-.
new Component
2 @- Set Required Fields for cl_save.
set @-   logical_key@item_number=<ItemNumber>-
set @-   logical_key@loc_id=-
set @-   logical_key@comp_item_number=<ComponentItemNumber>-
set @-   logical_key@comp_seq_nm=<ComponentSequenceNumber>-
if ComponentType: set @   item_type@curr_key=<ComponentType>-
set @-   il_ec_number=<EcNumber>-
set? @-   update_count=-
subscribe @- Set  fields to be selected for Save.
2 @- Execute Save method. > QV_Save_Object(obj) = 0
exit

== ComponentDelete
after EngineeringChangeOpen 1=1 | 2=2 | [id, desc] 50
use ComponentDelete DbObjectId=4711 | EcNumber=ec-1 | ItemNumber=br-1 | CompItemNumber=pl-2 | SeqNumber=10
ComponentDelete- :
2 @-----start------.
2 @ \tDbObjectId=<DbObjectId>-.
2 @\tEcNumber=<EcNumber>.
2 @\tItemNumber=<ItemNumber>.
2 @\tCompItemNumber=<CompItemNumber>.
2 @\tSeqNumber=<SeqNumber>.
now SelectedAttribute=[]
new Component
2 @ set required fields for cl_delete-.
set @    db_object_id=<DbObjectId>-
set @    il_ec_number=<EcNumber>-
2 @    logical_key@item_numbe=<ItemNumber>-. > QV_Set_Object_Attr(obj, "logical_key@item_number", "<ItemNumber>") = 0
set @    logical_key@loc_id=-
set @    logical_key@comp_item_number=<CompItemNumber>-
set @    logical_key@comp_seq_nm=<SeqNumber>-
2 @ Execute component delete. > QV_Delete_Object(obj) = 0
end 2 @----Exit------------rc=#--------------------.

== ComponentOpen
after ComponentOpen 1=1 | 2=2 | {} 50
use ComponentOpen DbObjectId=4711x | ^EcNumber=ec-1a | {comp_seq_nm} 50
start
each input: 2 @-    <>-.
listing name: @- Selected Attributes are .... | @-   <name>-.
log @ DbObjectId= <DbObjectId> , EcNumber= <EcNumber>
new Component
set @-  db_object_id=<DbObjectId>-
2 @-  il_ec_number=<EcNumber>-. > QV_Set_Object_Attr(obj, "il_ec_number", "<EcNumber>") = 0 as QV_Set_Object_Attr "il_ec_number"
subscribe @ Set  fields to be selected for Open.
> QV_Open_Object(obj) = 0
log @ ...Component was  found
failed log @ ...Component was  not found

== ComponentReferenceSave
use ComponentReferenceSave EcNumber=ec-1 | ItemNumber=br-1 | CompItemNumber=pl-2 | CompSeqNumber=10 | +CompRef=VELOR/Quorvanemaster Integration | CompRefXref=xref | [comp_ref_xref] 30
2 @-----start------.
each input: 2 @\t<>.
listing name: @Printing Selected Attributes .... | @\t<name>-.
new ComponentReference
2 @Set required fields for Open.
set @   db_object_id=
set @   logical_key@item_number=<ItemNumber>
set @   logical_key@loc_id=
set @   logical_key@comp_item_number=<CompItemNumber>
2 @   logical_key@=comp_seq_nm=<CompSeqNumber>. > QV_Set_Object_Attr(obj, "logical_key@comp_seq_nm", "<CompSeqNumber>") = 0
2 @   logical_key@=comp_ref=<CompRef>. > QV_Set_Object_Attr(obj, "logical_key@comp_ref", "<CompRef>") = 0
set @   il_ec_number=<EcNumber>
subscribe @   Set fields to be selected for Open.
2 @Updating comp_ref_xref attribut.
set @   comp_ref_xref=<CompRefXref>
set? @   update_count=-
2 @Execute Save method.
> QV_Save_Object(obj) = 0
end 2 @-----Exit------entries/rc=#------.

== ComponentReferenceSaveOfAStoredOneIsAWarningAndASuccess
answer QV_Save_Object -220 Q220 - already stored
use ComponentReferenceSave EcNumber=ec-1 | ItemNumber=br-1 | CompItemNumber=pl-2 | CompSeqNumber=10 | +CompRef=VELOR/Quorvanemaster Integration | CompRefXref=xref | [comp_ref_xref] 30
part
> QV_Save_Object(obj1) = -220
! Q220 - already stored
0 @ ****** WARNING ****** ComponentReference already exists ?!?.
each input: 0 @\t<>.
2 @-----Exit------entries/rc=1------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[comp_ref_xref]

== ComponentReferenceSaveIsNotStoredWhenAnotherCallSaysSo
answer QV_Subscribe_Object_Attr -220 Q220 - odd
use ComponentReferenceSave 1=1 | 2=2 | 3=3 | 4=4 | +CompRef= | 5=5 | [comp_ref_xref] 30
part
! Q220 - odd
2 @-----Exit------entries/rc=0------.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-220 SelectedAttribute=[comp_ref_xref]

== ComponentReferenceDeleteAndItemReferenceDelete
after EngineeringChangeOpen 1=1 | 2=2 | [id, desc] 50
use ComponentReferenceDelete DbObjectId=4711 | EcNumber=ec-1
also ItemReferenceDelete
if ComponentReferenceDelete: ComponentReferenceDelete- :
if ItemReferenceDelete: ItemReferenceDelete- :
2 @-----start------.
2 @ \tDbObjectId=<DbObjectId>-.
2 @\tEcNumber=<EcNumber>.
now SelectedAttribute=[]
if ComponentReferenceDelete: new ComponentReference
if ItemReferenceDelete: new ItemReference
2 @ set required fields for cl_delete-.
set @    db_object_id=<DbObjectId>-
set @    il_ec_number=<EcNumber>-
if ComponentReferenceDelete: 2 @ Execute ComponentReference delete.
> QV_Delete_Object(obj) = 0
end 2 @----Exit------------rc=#--------------------.

== ItemReferenceCreate
entry ItemReferenceCreate logical_key@loc_id=LOC
use ItemReferenceCreate ~EcNumber=ec-1a | ~ItemNumber=br-1b | ~DocumentNumber=d-1c | DocumentRevisionNumber=a | SystemPartnerOid=oid | [item_ref_xref] 30
also EcNumber=
start
defaults usual
listing input: @ Printing Input Attributes .... | @\t<>.
listing default: @-     ... plus default attributes .... | @-     <>-.
listing name: @ Printing Selected Attributes .... | @   <name>-.
new ItemReference
if EcNumber: 2 @- Valuate il_ec_number untyped instance with EC number=<EcNumber>-.
if EcNumber: set @-   il_ec_number=<EcNumber>-
2 @- Set Required Fields for save.
2 @-   logical_key@item_number<ItemNumber>. > QV_Set_Object_Attr(obj, "logical_key@item_number", "<ItemNumber>") = 0
set @-   logical_key@reference_id=<DocumentNumber>
set @-   reference_level=<DocumentRevisionNumber>
set @-   item_ref_xref=<SystemPartnerOid>
set @-   logical_key@loc_id=-
set? @-   update_count=-
each default: set @-     <>-
subscribe @- Set fields to be selected for cl_save.
2 @- Execute cl_save method; CLAYR_makeCall, cl_save. > QV_Save_Object(obj) = 0
exit

== ItemReferenceQueryDoesNothing
after EngineeringChangeOpen 1=1 | 2=2 | [id, desc] 50
use ItemReferenceQuery 1=a | 2=b | 3=c | 4=d | [x] 0
now result=0
