// SPDX-License-Identifier: Apache-2.0
//
// Product configuration: the options and option packages of a product.
#ifndef VELRZM_PRODUCT_CONFIGURATION_H
#define VELRZM_PRODUCT_CONFIGURATION_H

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/**
 * Lists the options of a product, sorted by product, feature and variant. The current result is the list, with its last
 * record as the one read last. The three lists of the caller are emptied, also when the query fails, and then hold one
 * entry for each option.
 *
 * @param productNumber the product as it is stored, at most 65 characters, otherwise refused; empty for the options of
 * every product. May stand in one of the lists.
 * @param products receives the products.
 * @param features receives the features.
 * @param variants receives the variants.
 * @return the number of options; 0 when there are none or on failure.
 */
VELRZM_API int ProductOptionQuery(const VELUnicodeString& productNumber, VELListValVELUnicodeString& products,
                                  VELListValVELUnicodeString& features, VELListValVELUnicodeString& variants);

/**
 * Lists the option packages of a product, sorted by product and package; otherwise like ProductOptionQuery.
 *
 * @param productNumber the product, as for ProductOptionQuery; empty for the packages of every product.
 * @param products receives the products.
 * @param packages receives the package identifiers.
 * @param thirdList emptied, and not used otherwise.
 * @return the number of packages; 0 when there are none or on failure.
 */
VELRZM_API int ProductPackageQuery(const VELUnicodeString& productNumber,
                                   VELListValVELUnicodeString& products, VELListValVELUnicodeString& packages,
                                   VELListValVELUnicodeString& thirdList);

#endif
