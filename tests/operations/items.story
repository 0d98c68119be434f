Items, their product-unit effectivities and their associations.

== ItemCreateAndItemSave
entry ItemCreate name=default unit=EA
environment QVL_BOM_HEADER_CREATE=YES
after ItemOpen 1=1 | 2=2 | {kept} 50
use ItemSave ^EcNumber=ec-12a | ^ItemNumber=br-100 | ^ItemName=Bracket | ItemType=Pt | (name=given, skipped=, null=null, missing) | {db_object_id} 30
also ItemType=
also ItemCreate
also ItemCreate | ItemType=
start
defaults
listing input: @- Printing Input Attributes .... | @\t<>.
listing pair: @-     ... plus some other Input Attributes .... | @   <>-.
listing default: @-     ... and eventually, some Default Attributes .... | @-     <>-.
listing name: @ Printing Selected Attributes .... | @-   <name>-.
new ItemEngineeringData
if ItemSave:
  set @-  db_object_id=-
  set @-   logical_key@item_number=<ItemNumber>-
  set @-   logical_key@loc_id=-
  set @-   il_ec_number=<EcNumber>-
  2 @-   update_count=-. >? QV_Subscribe_Object_Attr(obj, "update_count") = 0
  > QV_Open_Object(obj) = 0
2 @ Set Required Fields for Save.
each default: set @-     <>-
each given pair: set @-     <>-
if ItemSave:
  set @-   name=<ItemName>-
  if ItemType: set @-   item_type=<ItemType>-
  subscribe @- Set  fields to be selected for Save.
  2 @- Execute Save method. > QV_Save_Object(obj) = 0
if ItemCreate:
  set @   logical_key@item_number=<ItemNumber>-
  set @   logical_key@loc_id=-
  set @   il_ec_number=<EcNumber>-
  set @   name=<ItemName>-
  if ItemType: set @   item_type=<ItemType>-
  2 @   design_loc_id =-. > QV_Set_Object_Attr(obj, "design_loc_id", "") = 0
  set? @   update_count=-
  2 @  create_bomheader =TRUE-. > QV_Set_Object_Attr(obj, "create_bomheader", "TRUE") = 0
  subscribe @ Set  fields to be selected for Save.
  2 @ Execute Save method. > QV_Save_Object(obj) = 0
end 2 @----Exit------------entries/rc=#--------------------.

== ItemCreateAsksForABomHeaderByYesAlone
environment QVL_BOM_HEADER_CREATE=yes
use ItemCreate 1=EC-1 | 2=BR-1 | 3=A | 4= | {} 30
part
set @   update_count=-
2 @ Set  fields to be selected for Save.
2 @ Execute Save method. > QV_Save_Object(obj) = 0

== ItemHeaderCreate
entry ItemHeaderCreate name=default
entry AffectedItemCreate
after ItemOpen 1=1 | 2=2 | {kept} 50
use ItemHeaderCreate ^EcNumber=ec-1a | ^ItemNumber=br-100 | ^ItemName=Bracket | ItemDesc=Flat steel | ItemType=Pt | SecurityLevel=Lvl | SecurityCategory=Cat
also EcNumber=
start
defaults
listing input: @- Printing Input Attributes .... | @\t<>.
listing default: @-     ... and eventually, some Default Attributes .... | @-     <>-.
new ItemEngineeringData
2 @ Set Required Fields for Save.
each default: set @-     <>-
set @   il_ec_number=-
2 @   logical_key@item_number=<=ItemNumber>-. > QV_Set_Object_Attr(obj, "logical_key@item_number", "<ItemNumber>") = 0
set @   name=<ItemName>-
set @   description=<ItemDesc>-
set @   item_type=<ItemType>-
set @   x_sec_level_code=<SecurityLevel>-
set @   x_sec_cat_code=<SecurityCategory>-
set? @-   update_count=0-
2 @ Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj, "db_object_id") = 0
2 @ Execute Save method. > QV_Save_Object(obj) = 0
if EcNumber:
  2 @ Calling AffectedItemCreate for Item <ItemNumber> at EC <EcNumber>.
  tell AffectedItemCreate EC Number=<EcNumber> | Item Number=<ItemNumber> | Action=REL | [db_object_id] 30
  2 @ rc(AffectedItemCreate)=$.
  now QV_RC=$
end 2 @----Exit------------entries/rc=#--------------------.

== ItemHeaderCreateOfAStoredItemReleasesNothing
answer QV_Save_Object -220 Q220 - Already stored
use ItemHeaderCreate 1=EC-1 | 2=2 | 3=3 | 4=4 | 5=5 | 6=6 | 7=7
part
> QV_Save_Object(obj) = -220
! Q220 - Already stored
2 @----Exit------------entries/rc=0--------------------.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-220 SelectedAttribute=[]

== ItemOpen
after ItemOpen 1=1 | 2=2 | {} 50
use ItemOpen ^ItemNumber=br-100a | ^EcNumber=ec-1b | {name, status} 50
start
each input: 2 @-    <>-.
listing name: @- Selected Attributes are .... | @-   <name>-.
log @ ItemNumber= <ItemNumber> , EcNumber= <EcNumber>
new ItemEngineeringData
set @-  db_object_id=-
2 @-   logical_key@item_number=<ItemNumber>-. > QV_Set_Object_Attr(obj, "logical_key@item_number", "<ItemNumber>") = 0 as QV_Set_Object_Attr "logical_key@item_number"
set @-   logical_key@loc_id=-
2 @-   il_ec_number=<EcNumber>-. > QV_Set_Object_Attr(obj, "il_ec_number", "<EcNumber>") = 0 as QV_Set_Object_Attr "il_ec_number"
subscribe @ Set  fields to be selected for Open.
> QV_Open_Object(obj) = 0
log @ ...Item was  found
failed log @ ...Item was  not found

== ItemQuery
record
record
record
after ItemQuery 1= | 2= | 3= | 4= | 5= | 6= | 7= | 8= | [] 50
use ItemQuery ^Item Number=br-1 | ^EC Number=ec-1 | Item Type Code=P | Item Status Code=Rel | ^Item Name=Bracket | Item Description=Flat | !Sort By=2 | !Query Type=STD | [name, weight] 50
also Item Number=<44*X> | EC Number=<49*X> | Item Type Code=<47*X> | Item Status Code=<48*X> | Item Name=<48*X> | Item Description=<48*X>
also Item Number=a=1 | EC Number==ec1 | Item Status Code=r%s | Item Name=flat  | Item Description==o'b
also Item Number= | EC Number= | Item Type Code= | Item Status Code= | Item Name= | Item Description=
also Item Number=<45*x>
also EC Number=<50*x>
also Item Type Code=<48*x>
also Item Status Code=<49*x>
also Item Name=<49*x>
also Item Description=<49*x>
2 @-----Start------abc------------------------.
2 @- Printing input argument ....
2    Item Number=<=Item Number>-.
2    EC Number=<=EC Number>-.
2    Item Type Code=<Item Type Code>-.
2    Item Status Code=<Item Status Code>-.
2    Item Name=<=Item Name>-.
2    Item Description=<Item Description>-.
2    Sort By=2-.
2    Query Type=STD-.
listing name: @- Printing attributes to select.... |    -<name>-.
result List
calls DestroyListOrReport
2 @-----Start-------. > QV_Destroy_List(list) = 0
end 2 @-----Exit--------.
returns
> QV_Create_List(+list, "ItemEngineeringData") = 0
each name: select <name>
select net_pu_flg, logical_key@loc_id
2 adding ai_obj@xxx attributes in Select List.
select ai_obj@item_status, ai_obj@ec@status, ai_obj@ec@id, ai_obj@ec@db_object_id, ai_obj@pln_rev_level, ai_obj@ec@chg_control_code
where &=(logical_key@loc_id,' ')
where &<=(insert_by,ai_obj@design_seq_num)
where &OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))
if EC Number: where 49 ecNumber=<EC Number> &=(ai_obj@ec@id, '...')
if Item Status Code: where 48 itemStatusCode=<Item Status Code> &LIKE(ai_obj@item_status, '...%')
if Item Number: where 44 itemNumber=<Item Number> &LIKE(logical_key@item_number, '...%')
if Item Type Code: where 47 itemTypeCode=<Item Type Code> &LIKE(item_type, '... %')
if Item Name: where 48 itemName=<Item Name> &LIKE(name, '...%')
if Item Description: where 48 itemDescription=<Item Description> &LIKE(description, '...%')
order ai_obj@ec@id
>! QV_Open_List(list) = 0
count 3
exit

== ItemQueryOfOneNumberAndChangesOfAPattern
use ItemQuery ^Item Number==A100 | ^EC Number=e%c | 3= | 4= | 5= | 6= | Sort By= | 8=dev | [] 50 | +Number=A100
also Item Number== | Number= | Sort By=1
also Item Number==<48*X> | Number=<48*X> | Sort By=02
also Item Number==<49*X> | Number=<49*X>
also EC Number=%<48*D>
also EC Number=%<49*D>
part
where &OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))
where 49 ecNumber=<EC Number> &LIKE(ai_obj@ec@id, '...')
where 48 itemNumber=<Number> &=(logical_key@item_number, '...')
order logical_key@item_number

== ItemQueryThatHasStoppedLeavesTheTexts
answer QV_Create_List -7 Q1 - No class
use ItemQuery 1=br | 2=ec | 3= | 4= | 5=a | 6= | 7= | 8= | [] 50
part
! Q1 - No class
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]

== ItemQueryOfItemsInDevelopment
use ItemQuery ^1=br | 2=ec-1 | 3=P | 4=Rel | ^5=a | 6=b | 7= | 8=DEV | [] 50
part
> QV_Create_List(list, "ItemEngineeringData") = 0
select net_pu_flg, logical_key@loc_id
where &LIKE(master_item@control,'1%')
where &LIKE(logical_key@item_number, 'BR%')
where &LIKE(item_type, 'P %')
where &LIKE(name, 'A%')
where &LIKE(description, 'b%')
order logical_key@item_number
> QV_Open_List(list) = 0
count 0
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]

== ItemQueryThatIsAnsweredByMinusOneIsNotCounted
record
answer QV_Open_List -1 Q1 - Nothing found
use ItemQuery 1= | 2= | 3= | 4= | 5= | 6= | 7= | 8=STD | [] 50
part
> QV_Open_List(list) = -1
! Q1 - Nothing found
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[]

== ItemQueryThatIsAnsweredByAnotherCodeIsCounted
record
answer QV_Open_List -2 Q1 - Something odd
use ItemQuery 1= | 2= | 3= | 4= | 5= | 6= | 7= | 8=STD | [] 50
part
> QV_Open_List(list) = -2
! Q1 - Something odd
count 1
2 @-----Exit------Nb of entries=1------------.
= 1 FromList=List entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]

== ItemPUEffectivityCreate
entry ItemPUEffectivityCreate prod_id=default
use ItemPUEffectivityCreate ^EcNumber=ec-1a | ^ItemNumber=br-100 | ^ProductId=p-9x | CutInUnit=u5 | (prod_id=given, null=null) | {net_pu_flg} 30
ItemPUEffectivityCreate-:
start
defaults without dash
listing input: @ Printing Input Attributes .... | @\t<>.
listing pair: @     ... plus some other Input Attributes .... | @   <>-.
listing default: @     ... and eventually, some Default Attributes .... | @     <>-.
listing name: @ Printing Selected Attributes .... | @   <name>-.
new ItemProductUnitEffectivity
2 @ Set Required Fields for Save.
each default: set @     <>-
each given pair: set @     <>-
set @   update_count=-
set @   loc_id=-
set @   item_number=<ItemNumber>-
set @   ecid=<EcNumber>-
set @   prod_id=<ProductId>-
set @   cut_in_unit=<CutInUnit>-
subscribe @ Set  fields to be selected for Save.
2 @ Execute Save method. > QV_Save_Object(obj) = 0
end 2 @----Exit------------entries/rc=#--------------------.

== ItemAssociationOpen
use ItemAssociationOpen DbObjectId=4711 | ItemNumber=br-100 | EcNumber=ec-1 | [alias_xref] 50
start
each input: 2 @-    <>-.
listing name: @- Selected Attributes are .... | @-   <name>-.
new ItemAssociationData
set @-  db_object_id=<DbObjectId>-
set @-   logical_key@item_number=<ItemNumber>-
set @-   logical_key@loc_id=-
set @-   logical_key@alias=HXD-
set @-   il_ec_number=<EcNumber>-
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0
> QV_Open_Object(obj) = 0

== ItemAssociationSave
use ItemAssociationSave EcNumber=ec-1 | ItemNumber=br-100 | SystemPartnerOid=part-7 | [db_object_id] 30
also EcNumber=
start
each input: 2 @\t<>.
listing name: @ Printing Selected Attributes .... | @   <name>-.
new ItemAssociationData
if EcNumber: 2 @ Valuate il_ec_number untyped instance with EC number=<EcNumber>-.
if EcNumber: set @   il_ec_number=<EcNumber>-
2 @ Set required fields for Save.
set @   db_object_id=
set @   logical_key@item_number=<ItemNumber>
set @   logical_key@loc_id=
set @   logical_key@alias=HXD
set @   alias_desc=VELOR/Quorvanemaster Integration
set @   alias_type@curr_key=8
set @   alias_xref=<SystemPartnerOid>
set? @   update_count=-
subscribe @ Set fields to be selected for cl_save.
2 @ Execute cl_save method; CLAYR_makeCall, cl_save. > QV_Save_Object(obj) = 0
exit
