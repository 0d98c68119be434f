Engineering changes and the items that they affect.

== EngineeringChangeCreate
entry EngineeringChangeCreate desc=default
use EngineeringChangeCreate ^EcNumber=ec-12a | EcName=Stronger bracket | SecurityLevel=3 | SecurityCategory=C | Initiator=jdoe
also SecurityLevel= | Initiator=
also SecurityCategory=
start
defaults
2 @- Printing Input Attributes ....
2 @-    EcNumber=<=EcNumber>- EcName=<EcName>-.
2 @-    SecurityLevel=<SecurityLevel>- SecurityCategory=<SecurityCategory>-.
log @ EcNumber= <EcNumber> EcName= <EcName>
log @ SecurityLevel= <SecurityLevel> SecurityCategory= <SecurityCategory>
if default: 2 @-     ... and eventually, some Default Attributes ....
each default:
  2 @-     <>-.
  log @     <name> = <value>
new EngineeringChange
2 @ Set Required Fields for Save.
each default: set @-     <>-
set @-   id=<EcNumber>-
set @-   desc=<EcName>-
set? @-   update_count=0-
set? @-   initiator@person_identifier=<Initiator>-
if SecurityLevel: set? @-   x_sec_level_code=<SecurityLevel>-
if SecurityCategory: set? @-   x_sec_cat_code=<SecurityCategory>-
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj) = 0
log @ ... Engineering Change was  created
failed log @ ... Engineering Change was  not created
exit

== EngineeringChangeCreateByTheUserAfterAnotherOperation
environment USER=jdoe
after EngineeringChangeOpen 1=1 | 2=EC-1 | [id, desc] 50
use EngineeringChangeCreate 1=EC-1 | 2= | 3= | 4= | 5=
part
set @-   initiator@person_identifier=jdoe-
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj) = 0
log @ ... Engineering Change was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]

== EngineeringChangeOpen
use EngineeringChangeOpen DbObjectId=4711 | EcNumber=ec-12a | [id, initiator@person_identifier] 50
start
each input: 2 @-    <>-.
listing name: @- Selected Attributes are .... | @-   <name>-.
new EngineeringChange
set @-  db_object_id=<DbObjectId>-
set @-   id=<EcNumber>-
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0
> QV_Open_Object(obj) = 0

== AffectedItemCreate
entry AffectedItemCreate eff_date_str=today item_number=default
use AffectedItemCreate ~EC Number=ec-12a | ~Item Number=br-100 | ~Action=add | [item_status] 30
also Action=rels
also Action=
2 @---Start------------------------------.
defaults usual
listing input: @- Printing Input Attributes .... | @-      <>-.
listing default: @-      ... plus AffectedItem default attributes .... | @-      <>-.
listing name: @- Printing Selected Attributes .... | @-      <name>-.
joined @ ItemNumber=<Item Number>, EcNumber=<EC Number>, Action=<Action>
each default: log @     <name> = <value>
new AffectedItem
2 @- Set required fields for cl_save.
set @-      ec@id=<EC Number>-
set @-      item_number=<Item Number>-
if Action: set @-      change_action@curr_key=<Action>-
unless Action: set @-      change_action@curr_key=CHG-
set? @-    update_count=-
each default: set @-      <>-
subscribe @- Set fields to be selected for cl_save.
2 @- Execute Save method. > QV_Save_Object(obj) = 0
log @ ...AffectedItem was  created
failed log @ ...AffectedItem was  not created
end 2 @---Exit------------entries/rc=#--------------------.

== AffectedItemCreateOfAReleaseLeavesOutTheDateOfEffectivityAlone
entry AffectedItemCreate eff_date_str=today eff_date=a EFF_DATE_STR=b
use AffectedItemCreate 1=EC-1 | 2=BR-1 | ~3=rel | [] 30
part
2 @-      eff_date_str=today-.
2 @- Skipping eff_date_str=today because Action=REL.
set @-      eff_date=a-
set @-      EFF_DATE_STR=b-

== AffectedItemQuery
record
record
use AffectedItemQuery EcDbObjectId=ab'12 | [item_number, item_status] 50
also EcDbObjectId=<57*x>
also EcDbObjectId=<58*x>
start
each input: 2 @\t<>.
listing name: @ Printing Selected Attributes .... | @   <name>-.
query AffectedItem
each name: select <name>
where 57 ecDbObjectId=<EcDbObjectId> &=(ec@db_object_id,'...')
order pln_rev_level, item_key@item_number
> QV_Open_List(list) = 0
count 2
exit

== AffectedItemQueryWithoutAChangeLeavesTheList
record
after AffectedItemQuery 1=1 | [] 50
use AffectedItemQuery !EcDbObjectId= | [item_number] 50
start
2 @\tEcDbObjectId=.
listing name: @ Printing Selected Attributes .... | @   <name>-.
result List
0 @****** ERROR ****** EC db_object_id is not valuated....
exit
now QV_RC=-1
