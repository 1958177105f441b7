#pragma once

#include "Brisko/AttributeTransitionAnim.h"
#include "Brisko/CSSParser.h"
#include "Brisko/Declaration.h"
#include "Brisko/LazyAttributeManager.h"
#include "Brisko/Rule.h"
#include "Brisko/Selector.h"
#include "Brisko/SimpleSelector.h"
#include "Brisko/Style.h"
#include "Brisko/StyleSheet.h"
#include "Brisko/Styleable.h"
