Product options and packages.

== ProductOptionQueryAndProductPackageQuery
use ProductOptionQuery ProductNumber=Car-1
also ProductPackageQuery
also ProductNumber=<65*x>
also ProductNumber=<66*x>
also ProductNumber=
start
each input: 2 @\t<>.
result List
now output=[ |  | ]
if ProductOptionQuery:
  now SelectedAttribute=[product, feature, variant]
  query ProductOption
  select product, feature, variant
if ProductPackageQuery:
  now SelectedAttribute=[product, package_id]
  query ProductOptionPkg
  select product, package_id
if ProductNumber: where 65 productNumber=<ProductNumber> &=(product,'...')
order product
if ProductOptionQuery: order feature
if ProductOptionQuery: order variant
if ProductPackageQuery: order package_id
> QV_Open_List(list) = 0
count 0
exit

== ProductOptionQueryReadsTheRows
record product=car feature=roof variant=glass
record product=car feature=seat variant=<4000*w>
use ProductOptionQuery ProductNumber=Car-1
part
= 2 FromList=List entries=2 LastRecNo=1 QV_RC=0 SelectedAttribute=[product, feature, variant] output=[car, car | roof, seat | glass, <4000*w>]

== ProductPackageQueryReadsTheRows
record product=car package_id=P1
record product=car package_id=P2
use ProductPackageQuery ProductNumber=Car-1
part
= 2 FromList=List entries=2 LastRecNo=1 QV_RC=0 SelectedAttribute=[product, package_id] output=[car, car | P1, P2 | ]

== ProductPackageQueryWhoseRowsCannotBeRead
record product=car
record product=car
answer QV_Read_List -7 Q1 - lost
use ProductPackageQuery ProductNumber=Car-1
part
= 2 FromList=List entries=2 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[product, package_id] output=[,  | ,  | ]
